// The music library next to the least work that could do the same: a folder scan next to a bare
// walk of the system's calls, a playlist next to splitting its file into lines.

#include "bench/MusicTree.h"
#include "bench/UsedMemory.h"
#include "library/AnyList.h"
#include "library/SongScan.h"
#include "library/SongTag.h"
#include "library/c_M3U.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

int BareWalk(int folder) {
    int tagged = 0;
    DIR* listing = fdopendir(folder);
    std::array<char, 128> tail;
    while (const dirent* entry = readdir(listing)) {
        if (entry->d_name[0] == '.')
            continue;
        if (entry->d_type == DT_DIR) {
            tagged += BareWalk(openat(folder, entry->d_name, O_RDONLY | O_DIRECTORY));
            continue;
        }
        const int file = openat(folder, entry->d_name, O_RDONLY);
        struct stat status;
        fstat(file, &status);
        if (pread(file, tail.data(), tail.size(), status.st_size - 128) == 128)
            tagged += std::memcmp(tail.data(), "TAG", 3) == 0;
        close(file);
    }
    closedir(listing);
    return tagged;
}

/// Makes the system forget what it has read of any file, which only root may do.
void EmptyCaches(benchmark::State& state) {
    state.PauseTiming();
    sync();
    if (!(std::ofstream("/proc/sys/vm/drop_caches") << 3 << std::flush))
        state.SkipWithError("only root can empty the caches");
    state.ResumeTiming();
}

enum class Caches { Warm, Cold };

void ScanFloor(benchmark::State& state, const fs::path& (*tree)(), Caches caches) {
    const fs::path& start = tree();
    for (auto _ : state) {
        if (caches == Caches::Cold)
            EmptyCaches(state);
        benchmark::DoNotOptimize(BareWalk(open(start.c_str(), O_RDONLY | O_DIRECTORY)));
    }
}

void ScanWithTags(benchmark::State& state, const fs::path& (*tree)(), Caches caches) {
    const fs::path& start = tree();
    for (auto _ : state) {
        if (caches == Caches::Cold)
            EmptyCaches(state);
        c_M3U list;
        int untitled = 0;
        library::ScanSongs(start, {[](const fs::path&) { return true; },
                                   [&](const fs::path& song, const library::SongTag& tag) {
                                       untitled += tag.Title().isEmpty() ? 1 : 0;
                                       list.Add(song);
                                       return true;
                                   }});
        if (list.Count() < 2'000 || untitled != 0)
            state.SkipWithError("the scan missed songs");
    }
}

/// The scan uses threads, so the time by the clock is what counts.
void ByTheClock(benchmark::internal::Benchmark* of) {
    of->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK_CAPTURE(ScanFloor, Id3v1, MusicTree, Caches::Warm)->Apply(ByTheClock);
BENCHMARK_CAPTURE(ScanWithTags, Id3v1, MusicTree, Caches::Warm)->Apply(ByTheClock);
BENCHMARK_CAPTURE(ScanFloor, Id3v1Cold, MusicTree, Caches::Cold)->Apply(ByTheClock);
BENCHMARK_CAPTURE(ScanWithTags, Id3v1Cold, MusicTree, Caches::Cold)->Apply(ByTheClock);
BENCHMARK_CAPTURE(ScanFloor, Pictures, PictureTree, Caches::Warm)->Apply(ByTheClock);
BENCHMARK_CAPTURE(ScanWithTags, Pictures, PictureTree, Caches::Warm)->Apply(ByTheClock);

fs::path SongPath(int song) {
    return "/home/somebody/Music/Some Artist/Some Album/" + std::to_string(song) + " - Title.mp3";
}

/// A playlist of so many songs.
fs::path Playlist(std::int64_t songs) {
    static const TemporaryFolder folder;
    const fs::path file = folder.Path() / (std::to_string(songs) + ".m3u");
    if (!fs::exists(file)) {
        c_M3U list;
        for (int song = 0; song < songs; ++song)
            list.Add(SongPath(song));
        list.WriteFile(file);
    }
    return file;
}

/// Reads the file and finds its lines, nothing more.
std::size_t ReadAndSplit(const fs::path& path) {
    const int file = open(path.c_str(), O_RDONLY);
    struct stat status;
    fstat(file, &status);
    const auto size = static_cast<std::size_t>(status.st_size);
    char* bytes = static_cast<char*>(std::malloc(size));
    const ssize_t got = read(file, bytes, size);
    close(file);
    std::vector<std::string_view> lines;
    for (const char *line = bytes, *end = bytes + got; line < end;) {
        const void* found = std::memchr(line, '\n', static_cast<std::size_t>(end - line));
        const char* next = found ? static_cast<const char*>(found) + 1 : end;
        lines.emplace_back(line, next - line);
        line = next;
    }
    benchmark::DoNotOptimize(lines.data());
    std::free(bytes);
    return lines.size();
}

/// The time should grow as the number of songs.
void Growing(benchmark::internal::Benchmark* of) {
    of->RangeMultiplier(10)->Range(1'000, 1'000'000)->Unit(benchmark::kMillisecond);
}

void PlaylistFloor(benchmark::State& state) {
    const fs::path file = Playlist(state.range());
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadAndSplit(file));
}
BENCHMARK(PlaylistFloor)->Apply(Growing);

/// Another program's list, of songs that are all gone.
void ForeignListOfTheDead(benchmark::State& state) {
    constexpr int kSongs = 100'000;
    const TemporaryFolder folder;
    const fs::path file = folder.Path() / "list.m3u8";
    std::ofstream stream(file);
    for (int song = 0; song < kSongs; ++song)
        stream << "Some Artist\\Album " << song / 10 << "\\" << song << " - Title.mp3\n";
    stream.close();
    for (auto _ : state) {
        c_M3U list;
        library::ReadAnyList(file, list);
        if (list.Count() != kSongs)
            state.SkipWithError("the playlist missed songs");
    }
}
BENCHMARK(ForeignListOfTheDead)->Unit(benchmark::kMillisecond);

void PlaylistRead(benchmark::State& state) {
    const fs::path file = Playlist(state.range());
    const double before = UsedMemory();
    for (auto _ : state) {
        auto list = std::make_unique<c_M3U>();
        list->ReadFile(file);
        if (list->Count() != state.range())
            state.SkipWithError("the playlist missed songs");
        state.PauseTiming();
        state.counters["bytes/song"] = (UsedMemory() - before) / list->Count();
        list.reset();
        ReadAndSplit(file); // so that it is in the processor's caches, as for the floor
        state.ResumeTiming();
    }
}
BENCHMARK(PlaylistRead)->Apply(Growing);

/// A list without a file to write back to when it goes.
void FillUnbound(c_M3U& list, std::int64_t songs) {
    for (int song = 0; song < songs; ++song)
        list.Add(SongPath(song));
    list.RandomizeList();
}

void PlaylistShuffled(benchmark::State& state) {
    c_M3U list;
    FillUnbound(list, state.range());
    for (auto _ : state)
        list.RandomizeList();
}
BENCHMARK(PlaylistShuffled)->Apply(Growing);

void PlaylistWalkedToTheEnd(benchmark::State& state) {
    c_M3U list;
    FillUnbound(list, state.range());
    for (auto _ : state) {
        list.ClearAllPlayed();
        for (int song = 0; song < list.Count(); ++song)
            benchmark::DoNotOptimize(list.NextUnplayed());
    }
}
BENCHMARK(PlaylistWalkedToTheEnd)->Apply(Growing);

/// Flushed to the disk, so the disk is measured too where the temporary folder is on one.
void PlaylistWritten(benchmark::State& state) {
    const TemporaryFolder folder;
    c_M3U list;
    FillUnbound(list, state.range());
    for (auto _ : state)
        list.WriteFile(folder.Path() / "list.m3u");
}
BENCHMARK(PlaylistWritten)->Apply(Growing);

} // namespace
