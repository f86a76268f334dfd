#include "library/NewerTags.h"

#include "library/ApeItems.h"
#include "library/Id3v2Frames.h"
#include "library/SongTitle.h"

#include <textidentificationframe.h>
#include <tstringlist.h>

namespace library {

namespace {

namespace ID3v2 = TagLib::ID3v2;
namespace APE = TagLib::APE;

constexpr std::int64_t kLongestField = Pieces::kPiece; // bytes; longer ones are skipped

QString OneLine(const TagLib::StringList& values) {
    constexpr int kLongest = 255;
    const QString text = QString::fromUtf8(values.toString(", ").toCString(true)).simplified();
    return text.left(text.size() > kLongest && text[kLongest - 1].isHighSurrogate() ? kLongest - 1
                                                                                    : kLongest);
}

QString Text(Id3v2Frames& frames, const Id3v2Frame& frame) {
    if (frame.size > kLongestField)
        return {};
    const auto parsed = frames.Parse(frame, frame.size);
    const auto* text = dynamic_cast<const ID3v2::TextIdentificationFrame*>(parsed.get());
    return text != nullptr ? OneLine(text->fieldList()) : QString();
}

TitleAndArtist ReadId3v2(platform::RegularFile& file) {
    constexpr std::int64_t kMostDecoded = 1 << 20;
    TitleAndArtist found;
    Id3v2Frames frames(file, kMostDecoded);
    while (const auto frame = frames.Next()) {
        if (frame->id == "TIT2" || frame->id == "TT2")
            found.title = Text(frames, *frame);
        else if (frame->id == "TPE1" || frame->id == "TP1")
            found.artist = Text(frames, *frame);
        if (!found.title.isEmpty() && !found.artist.isEmpty())
            break;
    }
    return found;
}

TitleAndArtist ReadApe(Pieces& file, std::int64_t end) {
    TitleAndArtist found;
    ApeItems items(file, end);
    while (const auto item = items.Next()) {
        if ((item->key != "TITLE" && item->key != "ARTIST") || item->size > kLongestField)
            continue;
        const APE::Item parsed = items.Parse(*item);
        if (parsed.type() == APE::Item::Text)
            (item->key == "TITLE" ? found.title : found.artist) = OneLine(parsed.toStringList());
    }
    return found;
}

} // namespace

TitleAndArtist ReadNewerTags(platform::RegularFile& file) {
    TitleAndArtist found = ReadId3v2(file);
    Pieces pieces(file);
    for (const std::int64_t end : ApeItems::Ends(pieces)) {
        if (!HasVisible(found.title))
            found = ReadApe(pieces, end);
    }
    return HasVisible(found.title) ? found : TitleAndArtist();
}

} // namespace library
