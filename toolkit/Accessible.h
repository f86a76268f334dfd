#pragma once

class QAccessibleInterface;

namespace toolkit {

/// A widget that chooses itself how screen readers see it.
class Accessible {
public:
    /// What screen readers see from now on; it belongs to Qt, which asks once.
    virtual QAccessibleInterface* NewInterface() = 0;

protected:
    Accessible();
    ~Accessible() = default;
    Accessible(const Accessible&) = delete;
    Accessible& operator=(const Accessible&) = delete;
};

} // namespace toolkit
