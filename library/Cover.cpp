#include "library/Cover.h"

#include "library/ApeItems.h"
#include "library/Id3v2Frames.h"
#include "platform/RegularFile.h"

#include <attachedpictureframe.h>

namespace library {

namespace {

using TagLib::ID3v2::AttachedPictureFrame;

constexpr std::int64_t kLargest = 8 << 20; // bytes of a field with a picture

QByteArray Copy(const TagLib::ByteVector& bytes) {
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

struct Picture {
    bool front;
    QByteArray bytes;
};

/// The picture in the first `most` bytes of a frame, which may cut it off.
std::optional<Picture> ReadPicture(Id3v2Frames& frames, const Id3v2Frame& frame,
                                   std::int64_t most) {
    // A compressed frame may expand a thousandfold.
    if ((frame.id != "APIC" && frame.id != "PIC") || frame.size > kLargest || frame.compressed)
        return {};
    const auto parsed = frames.Parse(frame, most);
    const auto* picture = dynamic_cast<const AttachedPictureFrame*>(parsed.get());
    const bool link = picture != nullptr && picture->mimeType().find("-->") >= 0;
    if (picture == nullptr || link || picture->picture().isEmpty())
        return {};
    return Picture{picture->type() == AttachedPictureFrame::FrontCover, Copy(picture->picture())};
}

QByteArray ReadId3v2(platform::RegularFile& file) {
    constexpr std::int64_t kStart = 256; // of a frame, enough to know its type
    Id3v2Frames frames(file, kLargest);
    std::optional<Id3v2Frame> cover;
    while (const auto frame = frames.Next()) {
        const auto picture = ReadPicture(frames, *frame, kStart);
        if (picture && (picture->front || !cover))
            cover = frame;
        if (picture && picture->front)
            break;
    }
    const auto picture = cover ? ReadPicture(frames, *cover, cover->size) : std::nullopt;
    return picture ? picture->bytes : QByteArray();
}

QByteArray ReadApe(Pieces& file, std::int64_t end) {
    ApeItems items(file, end);
    while (const auto item = items.Next()) {
        if (item->key != "COVER ART (FRONT)" || item->size > kLargest)
            continue;
        const TagLib::APE::Item parsed = items.Parse(*item);
        if (parsed.type() != TagLib::APE::Item::Binary)
            continue;
        const QByteArray named = Copy(parsed.binaryData()); // the picture, after a file name
        return named.mid(named.indexOf('\0') + 1);
    }
    return {};
}

} // namespace

QByteArray ReadCover(const std::filesystem::path& song) {
    platform::RegularFile file(song);
    if (file.Error())
        return {};
    QByteArray cover = ReadId3v2(file);
    Pieces pieces(file);
    for (const std::int64_t end : ApeItems::Ends(pieces)) {
        if (cover.isEmpty())
            cover = ReadApe(pieces, end);
    }
    return cover;
}

} // namespace library
