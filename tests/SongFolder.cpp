#include "tests/SongFolder.h"

#include "audio/c_XAudio.h"
#include "library/c_ID3.h"
#include "library/c_M3U.h"
#include "platform/Aside.h"
#include "platform/ProgramFolder.h"
#include "tests/audio/ToneFile.h"
#include "toolkit/c_Surface.h"

#include <chrono>
#include <cmath>
#include <map>

namespace fs = std::filesystem;

namespace {

constexpr double kShortest = 5.0; // as short as the game plays them
constexpr double kStep = 0.1;

const std::string& SongBytes(int number) {
    static std::map<int, std::string> made;
    std::string& bytes = made[number];
    if (bytes.empty()) // one byte more, which the tag will replace
        bytes = tonefile::Encode(kShortest + kStep * number) + '\0';
    return bytes;
}

QString Title(int number) { return QStringLiteral("Title %1").arg(number); }

} // namespace

SongFolder::SongFolder() {
    fs::create_directory_symlink(SONGRUSH_IMAGES, Path() / "Images");
    fs::create_directory(Path() / "PlayList");
    platform::SetProgramFolder(Path());
    gBack = std::make_unique<c_Surface>();
    gBack->CreateSurface(800, 600, QStringLiteral("Images\\Back.bmp"));
}

SongFolder::~SongFolder() {
    gAudio.reset();
    platform::AsidesEnd(std::chrono::seconds(20));
    gBack.reset();
    platform::SetProgramFolder({});
}

std::vector<fs::path> SongFolder::MakeSongs(int count, const char* name) {
    std::vector<fs::path> songs;
    for (int number = 1; number <= count; ++number) {
        const std::string file = "song" + std::to_string(number) + ".mp3";
        songs.push_back(mFolder.Write(fs::path(name) / file, SongBytes(number)));
        c_ID3 tag;
        tag.SetTitle(Title(number));
        tag.PutIdTag(songs.back());
    }
    return songs;
}

fs::path SongFolder::MakePlaylist(const std::vector<fs::path>& songs, const char* name) {
    c_M3U list;
    for (const fs::path& song : songs)
        list.Add(song);
    const fs::path file = Path() / "PlayList" / name;
    list.WriteFile(file);
    return file;
}

QString SongFolder::OpenTitle() {
    return Title(static_cast<int>(std::lround((Audio().Length() - kShortest) / kStep)));
}
