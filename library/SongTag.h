#pragma once

#include "library/c_ID3.h"

namespace platform {
class RegularFile;
}

namespace library {

/// The tag that a question uses: ID3v1, with title and artist of a newer tag (ID3v2, then APE) if
/// it has no title itself.
class SongTag : public c_ID3 {
public:
    /// Reads the tags of a file; one that cannot be read, or is not a regular file, has none.
    void Read(const std::filesystem::path& song);
    void Read(platform::RegularFile& song);

    /// Whether title and artist are those of a newer tag.
    bool IsNewer() const { return mNewer; }

private:
    bool mNewer = false;
};

} // namespace library
