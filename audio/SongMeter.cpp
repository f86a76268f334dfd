#include "audio/SongMeter.h"

#include "audio/Mp3Stream.h"

#include <chrono>
#include <utility>

namespace audio {

using namespace std::chrono_literals;

namespace {

/// A song is measured once it has stayed for so long: none that is passed over in a row of them.
constexpr auto kPatience = 20ms;
/// Between pieces, so that the program's own work comes first also on a busy machine.
constexpr auto kRest = 5ms;

} // namespace

std::shared_ptr<const SongLevel> SongMeter::Measure(const std::filesystem::path& path) {
    Abandon();
    mStop = std::stop_source();
    auto level = std::make_shared<SongLevel>();
    {
        const std::lock_guard lock(mMutex);
        mNext = Job{path, level, mStop.get_token()};
    }
    mChanged.notify_one();
    if (!mThread.joinable())
        mThread = std::jthread([this](const std::stop_token& quit) { Work(quit); });
    return level;
}

void SongMeter::Abandon() {
    mStop.request_stop();
    const std::lock_guard lock(mMutex);
    mNext.reset();
}

void SongMeter::Work(const std::stop_token& quit) {
    while (const std::optional<Job> job = NextJob(quit)) {
        if (const auto stream = Mp3Stream::Open(job->path, job->stop))
            job->level->Measure(*stream, [&job] {
                std::this_thread::sleep_for(kRest);
                return !job->stop.stop_requested();
            });
    }
}

/// Sleeps until there is a song to measure; nothing when the meter goes away.
std::optional<SongMeter::Job> SongMeter::NextJob(const std::stop_token& quit) {
    const auto waiting = [this] { return mNext.has_value(); };
    std::optional<Job> job;
    std::unique_lock lock(mMutex);
    do {
        if (!mChanged.wait(lock, quit, waiting))
            return std::nullopt;
        job = std::exchange(mNext, std::nullopt);
    } while (mChanged.wait_for(lock, quit, kPatience, waiting));
    return job;
}

} // namespace audio
