#include "library/c_ID3.h"

#include "platform/File.h"
#include "platform/RegularFile.h"
#include "platform/Text.h"

#include <QLatin1String>
#include <algorithm>
#include <array>
#include <iterator>

namespace {

constexpr std::size_t kTagSize = 128;
constexpr int kTextSize = 30; // of title, artist, album and comment, in bytes
constexpr int kYearSize = 4;
constexpr int kJoinedTitleSize = kTextSize - 1; // then comes the mark of a title that goes on
constexpr QChar kGoesOn = u'|';
constexpr std::string_view kIdentifier = "TAG";

/// The genres by their number in the tag. The odd spellings stay: `Genre` and `SetGenre` know the
/// genres by these names.
// clang-format off
constexpr const char* mGenres[] = {
    "Blues", "Classic Rock", "Country", "Dance", "Disco", "Funk", "Grunge", "Hip-Hop", "Jazz",
    "Metal", "New Age", "Oldies", "Other", "Pop", "R&B", "Rap", "Reggae", "Rock", "Techno",
    "Industrial", "Alternative", "Ska", "Death Metal", "Pranks", "Soundtrack", "Euro-Techno",
    "Ambient", "Trip Hop", "Vocal", "Jazz+Funk", "Fusion", "Trance", "Classical", "Instrumental",
    "Acid", "House", "Game", "Sound Clip", "Gospel", "Noise", "Alt. Rock", "Bass", "Soul", "Punk",
    "Space", "Meditative", "Instrumental Pop", "Instrumental Rock", "Ethnic", "Gothic", "Darkwave",
    "Techno-Industrial", "Electronic", "Pop-Folk", "Eurodance", "Dream", "Southern Rock", "Comedy",
    "Cult", "Gangsta Rap", "Top 40", "Christian Rap", "Pop/Punk", "Jungle", "Native American",
    "Cabaret", "New Wave", "Phychedelic", "Rave", "Showtunes", "Trailer", "Lo-Fi", "Tribal",
    "Acid Punk", "Acid Jazz", "Polka", "Retro", "Musical", "Rock & Roll", "Hard Rock", "Folk",
    "Folk/Rock", "National Folk", "Swing", "Fast-Fusion", "Bebob", "Latin", "Revival", "Celtic",
    "Blue Grass", "Avantegarde", "Gothic Rock", "Progressive Rock", "Psychedelic Rock",
    "Symphonic Rock", "Slow Rock", "Big Band", "Chorus", "Easy Listening", "Acoustic", "Humour",
    "Speech", "Chanson", "Opera", "Chamber Music", "Sonata", "Symphony", "Booty Bass", "Primus",
    "Porn Groove", "Satire", "Slow Jam", "Club", "Tango", "Samba", "Folklore", "Ballad",
    "power Ballad", "Rhythmic Soul", "Freestyle", "Duet", "Punk Rock", "Drum Solo", "A Capella",
    "Euro-House", "Dance Hall", "Goa", "Drum & Bass", "Club-House", "Hardcore", "Terror", "indie",
    "Brit Pop", "Negerpunk", "Polsk Punk", "Beat", "Christian Gangsta Rap", "Heavy Metal",
    "Black Metal", "Crossover", "Contemporary Christian", "Christian Rock", "Merengue", "Salsa",
    "Trash Metal", "Anime", "JPop", "Synth Pop"
};
// clang-format on
constexpr std::size_t kGenres = std::size(mGenres);
static_assert(kGenres == 148);

/// Gives the fields of a tag one after the other.
class TagReader {
public:
    explicit TagReader(std::string_view tag) : mRest(tag) {}

    QString Take(int size) {
        const std::string_view field = mRest.substr(0, static_cast<std::size_t>(size));
        mRest.remove_prefix(field.size());
        return platform::TextFromWindows1252(field);
    }

private:
    std::string_view mRest;
};

bool IsTag(std::string_view tail) {
    const QByteArrayView start(tail.data(), static_cast<qsizetype>(kIdentifier.size()));
    return start.compare(QByteArrayView(kIdentifier), Qt::CaseInsensitive) == 0;
}

QString GenreName(unsigned char number) {
    return number < kGenres ? QString(QLatin1String(mGenres[number])) : QString();
}

/// The number of a genre; of several with the same name the last. 0 for an unknown name.
char GenreNumber(const QString& name) {
    std::size_t number = 0;
    for (std::size_t i = 0; i < kGenres; ++i) {
        if (name.compare(QLatin1String(mGenres[i]), Qt::CaseInsensitive) == 0)
            number = i;
    }
    return static_cast<char>(number);
}

/// Text in which each character is one byte of a tag, so that a length is a number of bytes.
QString SingleByteText(const QString& text) {
    const QByteArray bytes = platform::Windows1252FromText(text);
    return platform::TextFromWindows1252(
        {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

bool IsCrap(QChar c) { return c == u'\n' || c == u'\r' || c == u'\0' || c == u'\\'; }

} // namespace

void c_ID3::GetIdTag(const std::filesystem::path& fileName) {
    platform::RegularFile file(fileName);
    GetIdTag(file);
}

void c_ID3::GetIdTag(platform::RegularFile& file) { TakeEnd(EndOf(file)); }

void c_ID3::TakeEnd(const QByteArray& end) {
    for (QString* field : {&mTitle, &mArtist, &mAlbum, &mYear, &mComment})
        field->clear();
    if (end.isEmpty())
        return;
    const std::string_view tag(end.constData(), static_cast<std::size_t>(end.size()));
    if (end.size() == kTagSize) {
        TagReader reader(tag.substr(kIdentifier.size()));
        mTitle = reader.Take(kTextSize);
        mArtist = reader.Take(kTextSize);
        mAlbum = reader.Take(kTextSize);
        mYear = reader.Take(kYearSize);
        mComment = reader.Take(kTextSize);
        mGenre = GenreName(static_cast<unsigned char>(tag.back()));
    }
    CleanFields();
    JoinLongTitle();
}

void c_ID3::PutIdTag(const std::filesystem::path& fileName) {
    FitFields();
    const QByteArray end = EndOf(fileName);
    if (end.isEmpty())
        return;
    if (!platform::ReplaceTail(fileName, static_cast<std::size_t>(end.size()), TagBytes()))
        CleanFields();
}

c_ID3 c_ID3::AsWritten() const {
    c_ID3 written = *this;
    written.FitFields();
    c_ID3 read;
    read.TakeEnd(written.TagBytes());
    return read;
}

QByteArray c_ID3::EndOf(const std::filesystem::path& fileName) {
    platform::RegularFile file(fileName);
    return EndOf(file);
}

QByteArray c_ID3::EndOf(platform::RegularFile& file) {
    std::array<char, kTagSize> tail{};
    if (file.Error() || !platform::ReadTail(file, tail))
        return QByteArray();
    // A new tag begins on the last byte of the sound, not after it. Decoders do not miss that byte,
    // and every version of the program tags a file in the same way.
    const QByteArrayView bytes(tail);
    return (IsTag({tail.data(), tail.size()}) ? bytes : bytes.last(1)).toByteArray();
}

std::error_code c_ID3::PutEnd(const std::filesystem::path& fileName, const QByteArray& end) {
    const QByteArray now = EndOf(fileName);
    const bool tagged = now.size() == kTagSize || end.size() == kTagSize;
    if (now.isEmpty() || end.isEmpty() || !tagged)
        return {};
    return platform::ReplaceTail(fileName, static_cast<std::size_t>(now.size()), end);
}

/// Gives all fields the lengths and the letters that the tag has room for.
void c_ID3::FitFields() {
    for (QString* field : {&mTitle, &mArtist, &mAlbum, &mYear, &mComment})
        *field = SingleByteText(*field);
    SplitLongTitle();
    for (QString* field : {&mTitle, &mArtist, &mAlbum, &mComment})
        *field = SpaceOut(*field, kTextSize);
    mYear = SpaceOut(mYear, kYearSize);
}

/// A title that does not fit goes on in the comment, where bars keep its spaces from being trimmed.
void c_ID3::SplitLongTitle() {
    if (mTitle.size() <= kTextSize)
        return;
    mComment = mTitle.mid(kJoinedTitleSize).replace(u' ', kGoesOn);
    mTitle = mTitle.first(kJoinedTitleSize) + kGoesOn;
}

void c_ID3::JoinLongTitle() {
    if (mTitle.size() == kTextSize && mTitle.back() == kGoesOn)
        mTitle = mTitle.first(kJoinedTitleSize) + QString(mComment).replace(kGoesOn, u' ');
}

QByteArray c_ID3::TagBytes() const {
    const QString fields = mTitle + mArtist + mAlbum + mYear + mComment;
    return QByteArray(kIdentifier.data(), kIdentifier.size()) +
           platform::Windows1252FromText(fields) + GenreNumber(mGenre);
}

void c_ID3::CleanFields() {
    for (QString* field : {&mTitle, &mAlbum, &mArtist, &mGenre, &mComment})
        *field = CleanCrap(*field);
}

QString c_ID3::CleanCrap(const QString& text) {
    QString cleaned = platform::TrimBlanks(text);
    cleaned.removeIf(IsCrap);
    return cleaned;
}

QString c_ID3::SpaceOut(const QString& text, int length) {
    return text.leftJustified(std::max(length, 0), u' ', true);
}

QString c_ID3::TitleFromFileName(const std::filesystem::path& file) {
    return CleanCrap(platform::AfterLastSeparator(platform::ShownText(file)))
        .replace(u'_', u' ')
        .remove(QStringLiteral(".mp3"), Qt::CaseInsensitive);
}
