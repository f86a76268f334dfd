#pragma once

#include <QString>

namespace platform {
class RegularFile;
}

namespace library {

struct TitleAndArtist {
    QString title;
    QString artist;
};

/// Title and artist of a song by its ID3v2 tag (2.2 to 2.4) or, if that has no title, by its APE
/// tag; empty when neither has one. Each is one line of at most 255 characters. Pictures are
/// skipped unread, and damaged fields count as missing. Looks for a tag only at the very start and
/// at the end, before an ID3v1 tag.
TitleAndArtist ReadNewerTags(platform::RegularFile& file);

} // namespace library
