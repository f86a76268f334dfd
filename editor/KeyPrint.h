#pragma once

#include <QHash>
#include <QString>
#include <cstddef>

namespace editor {

/// A hash of the keys of a list's songs, in their order: lists with the same one hold the same
/// songs, with near certainty. Needs no memory for each song.
class KeyPrint {
public:
    /// Adds the next key.
    void Add(const QString& key) {
        mHash = qHash(key, mHash);
        ++mCount;
    }

    bool operator==(const KeyPrint&) const = default;

private:
    std::size_t mHash = 0;
    std::size_t mCount = 0;
};

} // namespace editor
