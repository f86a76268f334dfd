#pragma once

#include <QString>
#include <cstdint>
#include <functional>

namespace toolkit {

/// Finds the line that begins with what is being typed. Letters typed within a second of each other
/// belong together; case and accents are ignored.
class TypeAhead {
public:
    /// Adds `typed` to the text and returns the first line that begins with it, from `selected` on
    /// or, for a new text, from the line after it; after the last line comes the first. -1 if there
    /// is none. `selected` may be -1.
    int Find(const QString& typed, int selected, int count,
             const std::function<QString(int line)>& text);

private:
    QString mTyped;
    std::int64_t mTypedAt = 0;
};

} // namespace toolkit
