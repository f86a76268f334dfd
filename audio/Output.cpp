#include "audio/Output.h"

#include "audio/Device.h"
#include "audio/Voice.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace audio {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

/// How long a device is kept open in silence, before a song and after one: players press Play soon,
/// or much later, and the next song usually follows at once.
constexpr auto kAhead = 10s;
constexpr auto kLinger = 100ms;
/// How long it is kept open for a voice that has begun, but has nothing decoded yet.
constexpr auto kBeginning = 2s;
/// A device that has not asked for frames for this long counts as not working.
constexpr auto kPatience = 1500ms;
constexpr auto kPeriod = 20ms;

std::atomic<bool> gNoDevice = false;

} // namespace

bool NoDevice() { return gNoDevice; }

/// What the voice needs of a device, shared with the threads that see to it.
struct Output::Need {
    explicit Need(std::shared_ptr<Voice> of) : voice(std::move(of)) {}

    void KeepDevice(const std::stop_token& stop);
    void StandIn(const std::stop_token& stop);

    const std::shared_ptr<Voice> voice;
    std::mutex mutex; // guards the rest
    std::condition_variable_any changed;
    int rate = kJingleRate;
    int expected = 0; // how many songs were
    Clock::time_point begun;
    Clock::time_point until; // longer if the voice sounds
    bool none = false;       // no device could be had for the last of these songs

private:
    bool Now() const { return Clock::now() < until || voice->Sounding() || voice->Chiming(); }
    bool Outdated(int openRate) const;
    void AwaitFade() const;
    void TakeFrames(std::uint64_t self, std::unique_lock<std::mutex>& lock,
                    const std::stop_token& stop);
};

/// Keeps the device open whenever it is needed. Opening and closing may take any time, so they are
/// done without the lock.
void Output::Need::KeepDevice(const std::stop_token& stop) {
    Device device(voice);
    std::unique_lock lock(mutex);
    while (changed.wait(lock, stop, [this] { return Now(); }) && !stop.stop_requested()) {
        const int openRate = rate;
        const int openFor = expected;
        none = false;
        lock.unlock();
        const bool failed = !device.Open(openRate);
        gNoDevice = failed;
        for (bool keep = true; keep;) {
            lock.lock();
            none = failed;
            changed.wait_for(lock, stop, kPeriod, [&] { return !Now() || Outdated(openRate); });
            keep = !stop.stop_requested() && Now() && !Outdated(openRate);
            // Without a device one is looked for again with the next song.
            keep = keep && !(failed && expected != openFor);
            lock.unlock();
            keep = keep && (failed || device.Serves());
        }
        voice->Hush();
        AwaitFade();
        device.Close();
        lock.lock();
    }
}

/// A short sound is played to its end before the device gets another rate, unless a song has begun.
bool Output::Need::Outdated(int openRate) const {
    return rate != openRate && (voice->Sounding() || !voice->Chiming());
}

/// Closing cuts off what the device has not taken yet.
void Output::Need::AwaitFade() const {
    const auto limit = Clock::now() + 300ms;
    while (voice->Fading() && Clock::now() < limit)
        std::this_thread::sleep_for(1ms);
}

/// Takes the frames whenever no device does.
void Output::Need::StandIn(const std::stop_token& stop) {
    const std::uint64_t self = NewDeviceNumber();
    std::unique_lock lock(mutex);
    const auto sounding = [this] { return voice->Sounding(); };
    while (changed.wait(lock, stop, sounding) && !stop.stop_requested()) {
        TakeFrames(self, lock, stop);
        voice->Disconnect(self);
    }
}

void Output::Need::TakeFrames(std::uint64_t self, std::unique_lock<std::mutex>& lock,
                              const std::stop_token& stop) {
    std::vector<Frame> unheard;
    int takenRate = 0;
    auto due = Clock::now();
    while (!stop.stop_requested() && voice->Sounding()) {
        const Voice::Listener served = voice->Served();
        const bool late = Clock::now() - std::max(served.asked, begun) > kPatience;
        const bool taking = served.device == self;
        if (taking && takenRate == rate) {
            voice->Fill(self, unheard);
        } else if (taking || late || none) {
            gNoDevice = true;
            takenRate = rate;
            unheard.resize(static_cast<std::size_t>(rate * kPeriod / 1s));
            voice->Connect(self, rate);
        }
        due = std::max(due + kPeriod, Clock::now() - kPeriod);
        changed.wait_until(lock, stop, due, [] { return false; });
    }
}

Output::Output(std::shared_ptr<Voice> voice) : mNeed(std::make_shared<Need>(std::move(voice))) {}

void Output::Expect(int rate) {
    {
        const std::lock_guard lock(mNeed->mutex);
        mNeed->rate = rate;
        mNeed->until = Clock::now() + kAhead;
        ++mNeed->expected;
    }
    Wake();
}

void Output::Begin(int rate) {
    {
        const std::lock_guard lock(mNeed->mutex);
        mNeed->rate = rate;
        mNeed->begun = Clock::now();
        mNeed->until = mNeed->begun + kBeginning;
    }
    Wake();
}

void Output::End() {
    const std::lock_guard lock(mNeed->mutex);
    mNeed->until = Clock::now() + kLinger;
}

void Output::Chime() {
    mNeed->mutex.lock(); // so that a thread about to wait does not miss the wake-up
    mNeed->mutex.unlock();
    Wake();
}

void Output::Wake() {
    mNeed->changed.notify_all();
    if (mDevice)
        return;
    mDevice.emplace([need = mNeed](const std::stop_token& stop) { need->KeepDevice(stop); });
    mStandIn.emplace([need = mNeed](const std::stop_token& stop) { need->StandIn(stop); });
}

} // namespace audio
