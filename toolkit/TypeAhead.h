#pragma once

#include <QString>
#include <cstdint>
#include <functional>

namespace toolkit {

/// Finds the line that begins with what is being typed. Letters that follow each other within a
/// second belong together; case and accents do not count.
class TypeAhead {
public:
    /// Takes `typed` in and returns the first line from `selected` on, or from the one after it
    /// when a new text begins, whose `text` fits; after the last line comes the first. -1 if none
    /// does. `selected` may be -1.
    int Find(const QString& typed, int selected, int count,
             const std::function<QString(int line)>& text);

private:
    QString mTyped;
    std::int64_t mTypedAt = 0;
};

} // namespace toolkit
