#include "library/c_ID3.h"
#include "library/c_M3U.h"
#include "tools/songs/Level.h"
#include "tools/songs/Mix.h"
#include "tools/songs/Mp3.h"
#include "tools/songs/Performance.h"
#include "tools/songs/ScoreReader.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <span>
#include <stdexcept>
#include <string_view>

namespace fs = std::filesystem;

namespace {

songs::Score ReadScoreFile(const fs::path& file) {
    std::ifstream in(file);
    if (!in)
        throw std::runtime_error("cannot read " + file.string());
    return songs::ReadScore(in, file.string());
}

/// Writes the song's tag and looks whether it is there, since the tag class keeps silent.
void WriteTag(const songs::Score& score, const fs::path& file) {
    c_ID3 tag;
    tag.SetTitle(QString::fromStdString(score.title));
    tag.SetArtist(QString::fromStdString(score.artist));
    tag.SetAlbum(QStringLiteral("Songrush Samples"));
    tag.SetYear(QString::fromStdString(score.year));
    tag.SetGenre(QString::fromStdString(score.genre));
    tag.PutIdTag(file);

    c_ID3 written;
    written.GetIdTag(file);
    if (written.Title() != QString::fromStdString(score.title) ||
        written.Artist() != QString::fromStdString(score.artist) ||
        written.Genre() != QString::fromStdString(score.genre))
        throw std::runtime_error("title, artist or genre do not fit into the tag of " +
                                 file.string());
}

void MakeSong(const fs::path& scoreFile, const fs::path& songFile) {
    const songs::Score score = ReadScoreFile(scoreFile);
    songs::Stereo sound = songs::Mix(songs::Perform(score));
    songs::Level(sound);
    songs::WriteMp3(sound, songFile);
    WriteTag(score, songFile);
}

void MakePlaylist(const fs::path& playlist, std::span<char*> songFiles) {
    const fs::path folder = fs::absolute(playlist).parent_path();
    c_M3U list;
    for (const char* song : songFiles)
        list.Add(fs::absolute(song).lexically_relative(folder));
    list.WriteFile(playlist);
}

int Run(std::span<char*> arguments) {
    if (arguments.size() == 2 && std::string_view(arguments[0]) != "--playlist") {
        MakeSong(arguments[0], arguments[1]);
        return 0;
    }
    if (arguments.size() > 2 && std::string_view(arguments[0]) == "--playlist") {
        MakePlaylist(arguments[1], arguments.subspan(2));
        return 0;
    }
    std::fputs("Usage: songrush_make_songs song.score song.mp3\n"
               "       songrush_make_songs --playlist list.m3u song.mp3...\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    try {
        return Run(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
