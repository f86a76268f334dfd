#include "audio/Track.h"

#include "audio/LevelledStream.h"
#include "audio/Mp3Stream.h"
#include "audio/Reel.h"
#include "platform/Wait.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <utility>

namespace audio {

using namespace std::chrono_literals;

namespace {

/// Frames decoded ahead while the loudness, and with it the gain, may still change.
constexpr std::size_t kFewFrames = 65536;
constexpr auto kFeedPause = 20ms;
/// Between pieces of a song that is measured, so that the program's other work comes first even on
/// a busy machine.
constexpr auto kRest = 5ms;

} // namespace

struct Track::Work {
    Work(std::vector<std::filesystem::path> paths, Start where, double least)
        : songs(std::move(paths)), start(std::move(where)), shortest(least) {}

    void Run(const std::stop_token& stop);

    const std::vector<std::filesystem::path> songs;
    const Start start;
    const double shortest;

    std::mutex mutex; // guards all up to `heard`
    std::condition_variable_any changed;
    State state = State::Opening;
    std::size_t index = 0;
    int rate = 0;
    double length = 0;
    std::shared_ptr<Reel> reel;
    bool begun = false; // something of the reel may have been heard
    bool heard = false; // frames are being taken from it

private:
    std::unique_ptr<Mp3Stream> OpenFirst(const std::stop_token& stop);
    void SetState(State now);
    void Begin(std::unique_ptr<Mp3Stream> stream);
    void Feed(std::size_t most);
    void WindOn(Reel& onto, std::size_t most, const std::function<bool()>& wanted);
    void Rewind();
    bool Rest(const std::stop_token& stop, std::chrono::milliseconds pause);
    void Sleep(const std::stop_token& stop);

    // These belong to the track's thread.
    std::optional<LevelledStream> mStream;
    std::shared_ptr<Reel> mFed;
};

void Track::Work::Run(const std::stop_token& stop) {
    std::unique_ptr<Mp3Stream> stream = OpenFirst(stop);
    if (!stream)
        return SetState(State::Failed);
    Begin(std::move(stream));
    SetState(State::Open);
    Feed(kFewFrames);
    SetState(State::Ready);
    mStream->Listen([&] {
        Feed(kFewFrames);
        return Rest(stop, kRest);
    });
    if (!stop.stop_requested())
        Rewind();
    while (!stop.stop_requested()) {
        Feed(FrameRing::kCapacity);
        Sleep(stop);
    }
}

std::unique_ptr<Mp3Stream> Track::Work::OpenFirst(const std::stop_token& stop) {
    for (std::size_t i = 0; i < songs.size() && !stop.stop_requested(); ++i) {
        {
            const std::lock_guard lock(mutex);
            index = i;
        }
        std::unique_ptr<Mp3Stream> stream = Mp3Stream::Open(songs[i], stop);
        if (stream && stream->Length() >= shortest)
            return stream;
    }
    return nullptr;
}

void Track::Work::SetState(State now) {
    {
        const std::lock_guard lock(mutex);
        state = now;
    }
    changed.notify_all();
    platform::WakeUp();
}

void Track::Work::Begin(std::unique_ptr<Mp3Stream> stream) {
    const double seconds = stream->Length();
    const std::int64_t first = std::llround(start(seconds) * stream->Rate());
    mStream.emplace(std::move(stream), std::make_shared<SongLevel>());
    const std::lock_guard lock(mutex);
    rate = mStream->Rate();
    length = seconds;
    reel = std::make_shared<Reel>(rate, first);
}

/// Winds frames onto the reel until `most` are waiting or the song ends.
void Track::Work::Feed(std::size_t most) {
    std::unique_lock lock(mutex);
    while (mFed != reel) {
        mFed = reel;
        lock.unlock();
        mStream->SeekTo(mFed->from);
        lock.lock();
    }
    lock.unlock();
    WindOn(*mFed, most, [this] {
        const std::lock_guard guard(mutex);
        return mFed == reel;
    });
}

void Track::Work::WindOn(Reel& onto, std::size_t most, const std::function<bool()>& wanted) {
    std::array<Frame, 1152> block;
    while (!onto.complete && onto.frames.Readable() < most && wanted()) {
        const std::span room(block.data(), std::min(block.size(), onto.frames.Space()));
        const std::size_t got = mStream->Read(room);
        onto.frames.Write(room.first(got));
        onto.complete = got == 0;
    }
}

/// Once the loudness is known, winds the reel again at the right gain, if nothing of it has been
/// heard.
void Track::Work::Rewind() {
    const auto wanted = [this] {
        const std::lock_guard guard(mutex);
        return mFed == reel && !begun;
    };
    if (!wanted())
        return;
    const auto again = std::make_shared<Reel>(rate, mFed->from);
    const std::int64_t reached = mStream->Next();
    mStream->SeekTo(again->from);
    WindOn(*again, FrameRing::kCapacity, wanted);
    {
        const std::lock_guard lock(mutex);
        if (mFed == reel && !begun) {
            mFed = reel = again;
            return;
        }
    }
    mStream->SeekTo(reached);
}

/// Sleeps for `pause` or until there is something to do; false once a stop is requested.
bool Track::Work::Rest(const std::stop_token& stop, std::chrono::milliseconds pause) {
    std::unique_lock lock(mutex);
    changed.wait_for(lock, stop, pause, [this] { return mFed != reel; });
    return !stop.stop_requested();
}

/// Sleeps until the reel needs more frames or is replaced.
void Track::Work::Sleep(const std::stop_token& stop) {
    std::unique_lock lock(mutex);
    changed.wait(lock, stop, [this] { return mFed != reel || (heard && !mFed->complete); });
    if (mFed == reel)
        changed.wait_for(lock, stop, kFeedPause, [this] { return mFed != reel; });
}

Track::Track(std::vector<std::filesystem::path> songs, Start start, double shortest)
    : mWork(std::make_shared<Work>(std::move(songs), std::move(start), shortest)),
      mThread([work = mWork](const std::stop_token& stop) { work->Run(stop); }) {}

Track::State Track::Now() const {
    const std::lock_guard lock(mWork->mutex);
    return mWork->state;
}

void Track::AwaitOpen() const {
    std::unique_lock lock(mWork->mutex);
    mWork->changed.wait(lock, [this] { return mWork->state != State::Opening; });
}

std::size_t Track::Index() const {
    const std::lock_guard lock(mWork->mutex);
    return mWork->index;
}

int Track::Rate() const {
    const std::lock_guard lock(mWork->mutex);
    return mWork->rate;
}

double Track::Length() const {
    const std::lock_guard lock(mWork->mutex);
    return mWork->length;
}

void Track::Seek(std::int64_t frame) {
    const std::lock_guard lock(mWork->mutex);
    if (!mWork->begun && mWork->reel->from == frame)
        return;
    mWork->reel = std::make_shared<Reel>(mWork->rate, frame);
    mWork->begun = false;
    mWork->changed.notify_all();
}

std::shared_ptr<Reel> Track::Hear() {
    const std::lock_guard lock(mWork->mutex);
    mWork->heard = mWork->begun = true;
    mWork->changed.notify_all();
    return mWork->reel;
}

void Track::Pause() {
    const std::lock_guard lock(mWork->mutex);
    mWork->heard = false;
}

} // namespace audio
