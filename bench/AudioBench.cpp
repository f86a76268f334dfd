#include "audio/Cue.h"
#include "audio/Mp3Stream.h"
#include "audio/SongLevel.h"
#include "audio/c_XAudio.h"
#include "bench/SlowDisk.h"
#include "tests/audio/ToneFile.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <mpg123.h>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// A kind of song, by the bytes of its file.
struct Kind {
    std::string name;
    std::string (*make)() = nullptr;
};

std::string SixtyMinutes() {
    const std::string part =
        tonefile::Encode(8, {.rate = 22050, .mono = true, .kbps = 32, .header = false});
    std::string bytes;
    for (int i = 0; i < 450; ++i)
        bytes += part;
    return bytes;
}

const std::vector<Kind> kKinds = {
    {"ConstantRate", [] { return tonefile::Encode(5); }},
    {"VariableRate", [] { return tonefile::Encode(5, {.variable = true}); }},
    {"TwoFilesJoined", [] { return tonefile::Encode(5) + tonefile::Encode(5); }},
    {"SixtyMinutes", SixtyMinutes},
};

fs::path FileOf(const std::string& name, const std::string& bytes) {
    const fs::path path = fs::temp_directory_path() / ("audio-bench-" + name + ".mp3");
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

/// What a game does with a song before anything is heard: open it with its length, go to the
/// middle, decode the first samples.
void OpenSeekDecode(benchmark::State& state, const std::string& name, const std::string& bytes) {
    const fs::path path = FileOf(name, bytes);
    std::array<audio::Frame, 1152> frames;
    for (auto _ : state) {
        const auto stream = audio::Mp3Stream::Open(path);
        if (!stream) {
            state.SkipWithError("cannot be opened");
            break;
        }
        stream->SeekTo(stream->Frames() / 2);
        benchmark::DoNotOptimize(stream->Read(frames));
        state.counters["seconds"] = stream->Length();
    }
    fs::remove(path);
}

/// The bytes of a file in memory, as libmpg123's reader.
struct Memory {
    static ssize_t Read(void* memory, void* to, size_t count) {
        auto& [bytes, at] = *static_cast<Memory*>(memory);
        const std::size_t got = bytes.copy(static_cast<char*>(to), count, at);
        at += got;
        return static_cast<ssize_t>(got);
    }

    static off_t Seek(void* memory, off_t offset, int whence) {
        auto& [bytes, at] = *static_cast<Memory*>(memory);
        const std::size_t base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? at : bytes.size();
        at = std::min(base + static_cast<std::size_t>(offset), bytes.size());
        return static_cast<off_t>(at);
    }

    const std::string& bytes;
    std::size_t at = 0;
};

/// The same by libmpg123 alone, which does not notice that files joined together differ.
void OpenSeekDecodeFloor(benchmark::State& state, const std::string& bytes) {
    std::array<float, 2 * 1152> samples;
    for (auto _ : state) {
        Memory memory{bytes};
        mpg123_handle* handle = mpg123_new(nullptr, nullptr);
        mpg123_param(handle, MPG123_FLAGS, MPG123_QUIET | MPG123_FORCE_FLOAT | MPG123_GAPLESS, 0);
        mpg123_param(handle, MPG123_INDEX_SIZE, -1000, 0);
        mpg123_replace_reader_handle(handle, Memory::Read, Memory::Seek, nullptr);
        mpg123_open_handle(handle, &memory);
        mpg123_scan(handle);
        mpg123_seek(handle, mpg123_length(handle) / 2, SEEK_SET);
        std::size_t got = 0;
        mpg123_read(handle, samples.data(), sizeof samples, &got);
        benchmark::DoNotOptimize(got);
        mpg123_delete(handle);
    }
}

/// What the background thread does for a song.
void MeasureLoudness(benchmark::State& state, const Kind& kind) {
    const fs::path path = FileOf(kind.name, kind.make());
    for (auto _ : state) {
        audio::SongLevel level;
        level.Measure(*audio::Mp3Stream::Open(path));
        benchmark::DoNotOptimize(level.Gain());
    }
    fs::remove(path);
}

/// The end of a player that has just begun to measure an hour of music.
void QuitWhileMeasuring(benchmark::State& state, const Kind& kind) {
    const fs::path path = FileOf(kind.name, kind.make());
    for (auto _ : state) {
        auto player = std::make_unique<c_XAudio>();
        player->OpenFile(path);
        std::this_thread::sleep_for(std::chrono::milliseconds(state.range(0)));
        const auto start = Clock::now();
        player.reset();
        state.SetIterationTime(Seconds(Clock::now() - start).count());
    }
    fs::remove(path);
}

/// What a player waits for after the press on Play: until the first sample was handed to the device
/// and its buffer of 10 ms has passed, that is until the position moves. The song was got ready and
/// the device opened before, as while a question is shown.
void PlayUntilHeard(benchmark::State& state, const Kind& kind, Disk disk) {
    setenv("SDL_AUDIODRIVER", "dummy", 0);
    const fs::path path = FileOf(kind.name, kind.make());
    SetDisk(disk);
    c_XAudio player;
    std::vector<double> waits;
    for (auto _ : state) {
        const auto middle = [](double length) { return length / 2; };
        const audio::Cue cue({path}, middle);
        while (cue.Working())
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        player.OpenFile(path);
        const double from = middle(player.Length());
        player.SeekTo(from);
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        const auto start = Clock::now();
        player.Play();
        while (player.Position() <= from)
            std::this_thread::sleep_for(std::chrono::microseconds(100));
        waits.push_back(Seconds(Clock::now() - start).count());
        state.SetIterationTime(waits.back());
        player.StopPlay();
    }
    SetDisk(Disk::Fast);
    std::sort(waits.begin(), waits.end());
    state.counters["median_ms"] = 1000 * waits[waits.size() / 2];
    fs::remove(path);
}

void RegisterOpenSeekDecode(const Kind& kind) {
    benchmark::RegisterBenchmark(
        ("OpenSeekDecodeFloor/" + kind.name).c_str(),
        [kind](benchmark::State& state) { OpenSeekDecodeFloor(state, kind.make()); })
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark(
        ("OpenSeekDecode/" + kind.name).c_str(),
        [kind](benchmark::State& state) { OpenSeekDecode(state, kind.name, kind.make()); })
        ->Unit(benchmark::kMicrosecond);
}

const bool kRegistered = [] {
    for (const Kind& kind : kKinds)
        RegisterOpenSeekDecode(kind);
    const Kind fourMinutes{.name = "FourMinutes", .make = [] { return tonefile::Encode(240); }};
    const Kind hour = kKinds.back();
    RegisterOpenSeekDecode(fourMinutes);
    for (const Kind& kind : {fourMinutes, hour})
        benchmark::RegisterBenchmark(("MeasureLoudness/" + kind.name).c_str(), MeasureLoudness,
                                     kind)
            ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("QuitWhileMeasuring", QuitWhileMeasuring, hour)
        ->ArgName("after_ms")
        ->Arg(0)
        ->Arg(30)
        ->Arg(100)
        ->UseManualTime()
        ->Iterations(30)
        ->Unit(benchmark::kMillisecond);
    for (const auto& [disk, name] : {std::pair(Disk::Fast, "PlayUntilHeard/"),
                                     std::pair(Disk::FiveMegabytes, "PlayUntilHeardSlowDisk/")}) {
        for (const Kind& kind : kKinds)
            benchmark::RegisterBenchmark((name + kind.name).c_str(), PlayUntilHeard, kind, disk)
                ->UseManualTime()
                ->Iterations(disk == Disk::Fast ? 15 : 5)
                ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

} // namespace
