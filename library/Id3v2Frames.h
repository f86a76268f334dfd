#pragma once

#include "library/Pieces.h"

#include <cstdint>
#include <id3v2frame.h>
#include <id3v2header.h>
#include <memory>
#include <optional>
#include <string>

namespace library {

/// A frame of an ID3v2 tag, as its header describes it.
struct Id3v2Frame {
    std::string head;
    std::string id;         ///< three letters in ID3v2.2, four from 2.3 on
    std::int64_t begin = 0; ///< of its content
    std::int64_t size = 0;  ///< of its content, in bytes; within the tag
    bool compressed = false;
};

/// Goes through the frames of the ID3v2 tag (2.2 to 2.4) at the start of a file. Reads their
/// headers, and their content only on request. The tag ends at the first damage. TagLib would read
/// the whole tag, pictures and all, so it only gets single frames.
class Id3v2Frames {
public:
    /// If a tag must be decoded as a whole before its frames can be found, only its first
    /// `mostDecoded` bytes are used.
    Id3v2Frames(platform::RegularFile& file, std::int64_t mostDecoded);

    /// The next frame; none at the end.
    std::optional<Id3v2Frame> Next();

    /// The frame with the first `most` bytes of its content; null if they cannot be read.
    std::unique_ptr<TagLib::ID3v2::Frame> Parse(const Id3v2Frame& frame, std::int64_t most);

private:
    std::int64_t ExtendedHeaderSize();
    std::int64_t FrameSize(const std::string& head);

    TagLib::ID3v2::Header mHeader;
    unsigned int mVersion = 0;
    std::string mDecoded;
    std::optional<Pieces> mPieces; // of the file, or of what was decoded
    int mFrames = 0;               // looked at so far
    std::int64_t mAt = 0;
    std::int64_t mEnd = 0;
};

} // namespace library
