#pragma once

#include "audio/SongLevel.h"

#include <condition_variable>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>

namespace audio {

/// Measures the loudness of songs on a thread of its own, which starts with the first song and
/// sleeps once it is measured. The functions belong to one thread and return at once.
class SongMeter {
public:
    SongMeter() = default;
    ~SongMeter() { Abandon(); } ///< waits 5 ms at most
    SongMeter(const SongMeter&) = delete;
    SongMeter& operator=(const SongMeter&) = delete;

    /// Abandons the song before and begins with this one. The level is that of a file that cannot
    /// be read, if it cannot.
    std::shared_ptr<const SongLevel> Measure(const std::filesystem::path& path);

    /// Leaves the song half measured.
    void Abandon();

private:
    struct Job {
        std::filesystem::path path;
        std::shared_ptr<SongLevel> level;
        std::stop_token stop;
    };

    void Work(const std::stop_token& quit);
    std::optional<Job> NextJob(const std::stop_token& quit);

    std::mutex mMutex;
    std::condition_variable_any mChanged;
    std::optional<Job> mNext; // guarded by the mutex
    std::stop_source mStop;   // of the song that is measured
    std::jthread mThread;
};

} // namespace audio
