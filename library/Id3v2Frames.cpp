#include "library/Id3v2Frames.h"

#include "library/TagBytes.h"
#include "platform/RegularFile.h"

#include <algorithm>
#include <cctype>
#include <id3v2framefactory.h>
#include <id3v2synchdata.h>
#include <string_view>

namespace library {

namespace ID3v2 = TagLib::ID3v2;

namespace {

constexpr std::int64_t kHeaderSize = 10;

/// A big-endian number with `bits` bits in each byte.
std::int64_t Number(std::string_view bytes, int bits = 8) {
    std::int64_t number = 0;
    for (const char byte : bytes)
        number = number << bits | static_cast<unsigned char>(byte);
    return number;
}

/// The reverse, as `count` bytes.
std::string Bytes(std::size_t number, std::size_t count, int bits) {
    std::string bytes(count, '\0');
    for (auto byte = bytes.rbegin(); byte != bytes.rend(); ++byte, number >>= bits)
        *byte = static_cast<char>(number & ((1U << bits) - 1));
    return bytes;
}

/// The first `size` bytes of a tag, decoded; the lengths in it count decoded bytes.
std::string Decoded(platform::RegularFile& file, std::int64_t size) {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    bytes.resize(
        static_cast<std::size_t>(std::max<std::int64_t>(file.ReadAt(kHeaderSize, bytes), 0)));
    const TagLib::ByteVector decoded = ID3v2::SynchData::decode(Vector(bytes));
    return {decoded.data(), decoded.size()};
}

bool IsFrame(std::string_view head) {
    return head.size() > 3 && std::all_of(head.begin(), head.begin() + 3, [](unsigned char c) {
               return std::isupper(c) != 0 || std::isdigit(c) != 0;
           });
}

} // namespace

Id3v2Frames::Id3v2Frames(platform::RegularFile& file, std::int64_t mostDecoded) {
    mPieces.emplace(file);
    const std::string_view head = mPieces->At(0, kHeaderSize);
    if (!head.starts_with("ID3"))
        return;
    mHeader.setData(Vector(head));
    mVersion = mHeader.majorVersion();
    if (mVersion < 2 || mVersion > 4)
        return;
    const std::int64_t size =
        std::min<std::int64_t>(mHeader.tagSize(), mPieces->End() - kHeaderSize);
    mAt = kHeaderSize;
    mEnd = kHeaderSize + size;
    if (mVersion < 4 && mHeader.unsynchronisation()) {
        mDecoded = Decoded(file, std::min(size, mostDecoded));
        mPieces.emplace(mDecoded);
        mAt = 0;
        mEnd = mPieces->End();
    }
    mAt += ExtendedHeaderSize();
}

std::optional<Id3v2Frame> Id3v2Frames::Next() {
    constexpr int kMost = 1000;
    const std::int64_t headSize = mVersion == 2 ? 6 : 10;
    Id3v2Frame frame;
    if (mAt >= mEnd || ++mFrames > kMost)
        return {};
    frame.head = mPieces->At(mAt, headSize);
    if (!IsFrame(frame.head))
        return {}; // the padding
    frame.id = frame.head.substr(0, mVersion == 2 ? 3 : 4);
    frame.begin = mAt + headSize;
    frame.size = FrameSize(frame.head);
    if (frame.size > mEnd - frame.begin)
        return {};
    frame.compressed = mVersion > 2 && (frame.head[9] & (mVersion == 3 ? 0x80 : 0x08)) != 0;
    mAt = frame.begin + frame.size;
    return frame;
}

std::unique_ptr<ID3v2::Frame> Id3v2Frames::Parse(const Id3v2Frame& frame, std::int64_t most) {
    const std::string held = mPieces->Copy(frame.begin, std::min(frame.size, most));
    if (held.empty())
        return nullptr;
    // TagLib trusts the size in the header, which must match the bytes it gets.
    const std::string size =
        mVersion == 2 ? Bytes(held.size(), 3, 8) : Bytes(held.size(), 4, mVersion == 4 ? 7 : 8);
    std::string bytes = frame.head;
    bytes.replace(frame.id.size(), size.size(), size).append(held);
    return std::unique_ptr<ID3v2::Frame>(
        ID3v2::FrameFactory::instance()->createFrame(Vector(bytes), &mHeader));
}

std::int64_t Id3v2Frames::ExtendedHeaderSize() {
    if (mVersion == 2 || !mHeader.extendedHeader())
        return 0;
    const std::string_view size = mPieces->At(mAt, 4);
    return mVersion == 4 ? Number(size, 7) : 4 + Number(size);
}

std::int64_t Id3v2Frames::FrameSize(const std::string& head) {
    if (mVersion == 2)
        return Number(head.substr(3));
    const std::int64_t plain = Number(head.substr(4, 4));
    if (mVersion == 3)
        return plain;
    // Some programs write sizes in 2.4 as in 2.3; what follows the frame shows which it is.
    const std::int64_t size = Number(head.substr(4, 4), 7);
    const auto leadsOn = [&](std::int64_t frame) {
        const std::int64_t next = mAt + static_cast<std::int64_t>(head.size()) + frame;
        const std::string_view after = mPieces->At(next, 4);
        return next == mEnd || after.starts_with('\0') || IsFrame(after);
    };
    return size == plain || leadsOn(size) || !leadsOn(plain) ? size : plain;
}

} // namespace library
