#pragma once

#include "library/c_ID3.h"

namespace platform {
class RegularFile;
}

namespace library {

/// The tag by which a song is asked: ID3v1, in which title and artist are those of a newer tag
/// (ID3v2, then APE) where it has no title itself.
class SongTag : public c_ID3 {
public:
    /// Reads the tags of a file; what cannot be read, or is no regular file, has none. Never waits
    /// for more than the disk.
    void Read(const std::filesystem::path& song);
    void Read(platform::RegularFile& song);

    /// Whether title and artist are those of a newer tag.
    bool IsNewer() const { return mNewer; }

private:
    bool mNewer = false;
};

} // namespace library
