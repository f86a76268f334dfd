#pragma once

#include <QHash>
#include <QString>
#include <cstddef>

namespace editor {

/// Stands for the keys of a list's songs in their order: two lists that have the same one are the
/// same, as far as chance allows. Needs no memory for each song.
class KeyPrint {
public:
    /// Notes the key that comes next.
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
