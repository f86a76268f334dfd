#pragma once

class QAccessibleInterface;

namespace toolkit {

/// A widget that decides for itself how screen readers see it.
class Accessible {
public:
    /// What screen readers see in its place. Qt asks once and owns the answer.
    virtual QAccessibleInterface* NewInterface() = 0;

protected:
    Accessible();
    ~Accessible() = default;
    Accessible(const Accessible&) = delete;
    Accessible& operator=(const Accessible&) = delete;
};

} // namespace toolkit
