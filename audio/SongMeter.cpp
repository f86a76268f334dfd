#include "audio/SongMeter.h"

#include "audio/Mp3Stream.h"

#include <utility>

namespace audio {

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
            job->level->Measure(*stream);
    }
}

/// Sleeps until there is a song to measure; nothing when the meter goes away.
std::optional<SongMeter::Job> SongMeter::NextJob(const std::stop_token& quit) {
    std::unique_lock lock(mMutex);
    if (!mChanged.wait(lock, quit, [this] { return mNext.has_value(); }))
        return std::nullopt;
    return std::exchange(mNext, std::nullopt);
}

} // namespace audio
