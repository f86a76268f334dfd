#include "library/SongTag.h"

#include "library/NewerTags.h"
#include "library/SongTitle.h"
#include "platform/RegularFile.h"

namespace library {

void SongTag::Read(const std::filesystem::path& song) {
    platform::RegularFile file(song);
    Read(file);
}

void SongTag::Read(platform::RegularFile& song) {
    GetIdTag(song);
    mNewer = false;
    if (song.Error() || HasVisible(Title()))
        return;
    const TitleAndArtist found = ReadNewerTags(song);
    mNewer = !found.title.isEmpty();
    if (mNewer)
        SetTitle(found.title);
    if (mNewer && HasVisible(found.artist))
        SetArtist(found.artist);
}

} // namespace library
