#include "library/NewerTags.h"

#include "library/SongTitle.h"
#include "platform/RegularFile.h"

#include <algorithm>
#include <apefooter.h>
#include <apeitem.h>
#include <array>
#include <cctype>
#include <cstdint>
#include <id3v2framefactory.h>
#include <id3v2header.h>
#include <id3v2synchdata.h>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <textidentificationframe.h>
#include <tstringlist.h>

namespace library {

namespace {

namespace ID3v2 = TagLib::ID3v2;
namespace APE = TagLib::APE;

// TagLib reads a tag as a whole, pictures and all, so it is handed only the fields wanted here.

constexpr std::size_t kPiece = 4096; // what is read at once, and the longest field that is read
constexpr int kMostFields = 1000;    // that are looked at in a tag

/// A file, or bytes of one, in pieces.
class Pieces {
public:
    explicit Pieces(platform::RegularFile& file) : mFile(&file), mEnd(file.Size()) {}
    explicit Pieces(std::string_view bytes)
        : mPiece(bytes), mEnd(static_cast<std::int64_t>(bytes.size())) {}

    std::int64_t End() const { return mEnd; }

    /// `size` bytes, at most a piece, from `offset` on; empty if there are not so many. They last
    /// until the next call.
    std::string_view At(std::int64_t offset, std::size_t size) {
        const auto length = static_cast<std::int64_t>(size);
        if (offset < 0 || size > kPiece || offset > mEnd - length)
            return {};
        if (mFile != nullptr && (offset < mBegin || offset + length > PieceEnd())) {
            const std::int64_t got = mFile->ReadAt(offset, mBuffer);
            mBegin = offset;
            mPiece = {mBuffer.data(), static_cast<std::size_t>(std::max<std::int64_t>(got, 0))};
            if (offset + length > PieceEnd())
                return {};
        }
        return mPiece.substr(static_cast<std::size_t>(offset - mBegin), size);
    }

private:
    std::int64_t PieceEnd() const { return mBegin + static_cast<std::int64_t>(mPiece.size()); }

    platform::RegularFile* mFile = nullptr;
    std::array<char, kPiece> mBuffer;
    std::string_view mPiece;
    std::int64_t mBegin = 0; // of the piece
    std::int64_t mEnd;
};

TagLib::ByteVector Vector(std::string_view bytes) {
    return {bytes.data(), static_cast<unsigned int>(bytes.size())};
}

/// A number of `bits` for each byte, the first one being the highest.
std::int64_t Number(std::string_view bytes, int bits = 8) {
    std::int64_t number = 0;
    for (const char byte : bytes)
        number = number << bits | static_cast<unsigned char>(byte);
    return number;
}

QString OneLine(const TagLib::StringList& values) {
    constexpr int kLongest = 255;
    const QString text = QString::fromUtf8(values.toString(", ").toCString(true)).simplified();
    return text.left(text.size() > kLongest && text[kLongest - 1].isHighSurrogate() ? kLongest - 1
                                                                                    : kLongest);
}

/// Takes the fields of an ID3v2 tag from the frames that hold them.
class Id3v2Fields {
public:
    explicit Id3v2Fields(platform::RegularFile& file) : mFile(file) {}

    TitleAndArtist Read() {
        Pieces pieces(mFile);
        const std::string_view head = pieces.At(0, kHeaderSize);
        if (!head.starts_with("ID3"))
            return {};
        mHeader.setData(Vector(head));
        mVersion = mHeader.majorVersion();
        if (mVersion < 2 || mVersion > 4)
            return {};
        const std::int64_t size =
            std::min<std::int64_t>(mHeader.tagSize(), pieces.End() - kHeaderSize);
        if (mVersion < 4 && mHeader.unsynchronisation()) {
            const std::string decoded = Decoded(size);
            Pieces memory(decoded);
            ReadFrames(memory, 0, static_cast<std::int64_t>(decoded.size()));
        } else {
            ReadFrames(pieces, kHeaderSize, kHeaderSize + size);
        }
        return mFound;
    }

private:
    static constexpr std::int64_t kHeaderSize = 10;

    /// The start of a tag whose lengths are true only when it is decoded as a whole.
    std::string Decoded(std::int64_t size) {
        constexpr std::int64_t kMost = 1 << 20;
        std::string bytes(static_cast<std::size_t>(std::min(size, kMost)), '\0');
        bytes.resize(
            static_cast<std::size_t>(std::max<std::int64_t>(mFile.ReadAt(kHeaderSize, bytes), 0)));
        const TagLib::ByteVector decoded = ID3v2::SynchData::decode(Vector(bytes));
        return {decoded.data(), decoded.size()};
    }

    void ReadFrames(Pieces& pieces, std::int64_t at, std::int64_t end) {
        const bool old = mVersion == 2;
        const std::size_t headSize = old ? 6 : 10;
        at += ExtendedHeaderSize(pieces, at);
        for (int frame = 0; frame < kMostFields; ++frame) {
            const std::string head(pieces.At(at, headSize));
            if (!IsFrame(head))
                return; // the padding
            const std::int64_t size = FrameSize(pieces, head, at, end);
            if (size > end - at - static_cast<std::int64_t>(headSize))
                return;
            if (QString* field = Field(head.substr(0, old ? 3 : 4)))
                *field = Decode(pieces.At(at, headSize + static_cast<std::size_t>(size)));
            if (!mFound.title.isEmpty() && !mFound.artist.isEmpty())
                return;
            at += static_cast<std::int64_t>(headSize) + size;
        }
    }

    std::int64_t ExtendedHeaderSize(Pieces& pieces, std::int64_t at) const {
        if (mVersion == 2 || !mHeader.extendedHeader())
            return 0;
        const std::string_view size = pieces.At(at, 4);
        return mVersion == 4 ? Number(size, 7) : 4 + Number(size);
    }

    static bool IsFrame(std::string_view head) {
        return head.size() > 3 && std::all_of(head.begin(), head.begin() + 3, [](unsigned char c) {
                   return std::isupper(c) != 0 || std::isdigit(c) != 0;
               });
    }

    std::int64_t FrameSize(Pieces& pieces, std::string_view head, std::int64_t at,
                           std::int64_t end) const {
        if (mVersion == 2)
            return Number(head.substr(3));
        const std::int64_t plain = Number(head.substr(4, 4));
        if (mVersion == 3)
            return plain;
        // Some programs write the sizes of 2.4 as those of 2.3, which shows after the frame.
        const std::int64_t size = Number(head.substr(4, 4), 7);
        const auto leadsOn = [&](std::int64_t frame) {
            const std::int64_t next = at + static_cast<std::int64_t>(head.size()) + frame;
            const std::string_view after = pieces.At(next, 4);
            return next == end || after.starts_with('\0') || IsFrame(after);
        };
        return size == plain || leadsOn(size) || !leadsOn(plain) ? size : plain;
    }

    QString* Field(const std::string& id) {
        if (id == "TIT2" || id == "TT2")
            return &mFound.title;
        return id == "TPE1" || id == "TP1" ? &mFound.artist : nullptr;
    }

    QString Decode(std::string_view bytes) const {
        if (bytes.empty())
            return {};
        const std::unique_ptr<ID3v2::Frame> frame(
            ID3v2::FrameFactory::instance()->createFrame(Vector(bytes), &mHeader));
        const auto* text = dynamic_cast<const ID3v2::TextIdentificationFrame*>(frame.get());
        return text != nullptr ? OneLine(text->fieldList()) : QString();
    }

    platform::RegularFile& mFile;
    ID3v2::Header mHeader;
    unsigned int mVersion = 0;
    TitleAndArtist mFound;
};

/// The fields of the APE tag that ends at `end`.
TitleAndArtist ReadApe(Pieces& pieces, std::int64_t end) {
    constexpr std::int64_t kFooterSize = 32;
    constexpr std::size_t kItemHead = 8;
    constexpr std::size_t kLongestKey = 255;
    const std::string_view foot = pieces.At(end - kFooterSize, kFooterSize);
    if (!foot.starts_with("APETAGEX"))
        return {};
    const APE::Footer footer(Vector(foot));
    TitleAndArtist found;
    std::int64_t at = end - footer.tagSize();
    const auto items = std::min<unsigned int>(footer.itemCount(), kMostFields);
    for (unsigned int i = 0; i < items && at >= 0 && at < end - kFooterSize; ++i) {
        const auto left = static_cast<std::size_t>(end - at);
        const std::string head(pieces.At(at, std::min(left, kItemHead + kLongestKey + 1)));
        const std::size_t key = head.find('\0', kItemHead);
        if (key == head.npos)
            break;
        const std::int64_t size =
            static_cast<std::int64_t>(key) + 1 + Vector(head.substr(0, 4)).toUInt(0U, false);
        APE::Item item;
        if (const std::string_view bytes = pieces.At(at, static_cast<std::size_t>(size));
            !bytes.empty())
            item.parse(Vector(bytes));
        const TagLib::String name = item.key().upper();
        if (item.type() == APE::Item::Text && (name == "TITLE" || name == "ARTIST"))
            (name == "TITLE" ? found.title : found.artist) = OneLine(item.toStringList());
        at += size;
    }
    return found;
}

} // namespace

TitleAndArtist ReadNewerTags(platform::RegularFile& file) {
    constexpr int kId3v1 = 128;
    TitleAndArtist found = Id3v2Fields(file).Read();
    Pieces pieces(file);
    for (const int after : {kId3v1, 0}) {
        if (!HasVisible(found.title))
            found = ReadApe(pieces, pieces.End() - after);
    }
    return HasVisible(found.title) ? found : TitleAndArtist();
}

} // namespace library
