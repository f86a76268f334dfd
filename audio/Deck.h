#pragma once

#include "audio/LevelledStream.h"
#include "audio/Output.h"
#include "audio/PlayClock.h"
#include "audio/Voice.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace audio {

/// Plays one stream. The public functions belong to one thread, the owner's; they only write down
/// what is wanted and return at once. Decoding and opening, fading and closing the device happen
/// on the deck's own thread, which starts with the first `Run` and sleeps while nothing plays.
class Deck {
public:
    Deck() = default;
    ~Deck();
    Deck(const Deck&) = delete;
    Deck& operator=(const Deck&) = delete;

    /// Stops and puts in another stream, at its start and at normal speed; null for none. Without
    /// a stream the other functions must not be called.
    void Load(std::shared_ptr<LevelledStream> stream);

    /// Plays on from the position; at the song's end nothing is heard.
    void Run();

    /// Stops and keeps the position: the next `Run` goes on with the next sample.
    void Halt();

    /// Goes to `seconds`, from 0 to the song's length, and plays on there if it was playing.
    void Seek(double seconds);

    /// Speed factor above 0, at once.
    void SetSpeed(double speed) { mVoice.SetSpeed(speed); }

    /// What is heard now, in seconds; between two calls of the functions above it never falls.
    double Position();

private:
    /// What the owner wants. `seek` numbers the wishes to go to a place, so that one is carried
    /// out once.
    struct Order {
        std::uint64_t number = 0;
        std::shared_ptr<LevelledStream> stream;
        bool run = false;
        std::uint64_t seek = 0;
        std::int64_t from = 0;
    };

    void Submit(double position);

    void Work();
    std::optional<Order> NextOrder();
    bool Superseded(std::chrono::milliseconds patience);
    void FallSilent();
    void Reposition(const Order& order);
    void Sound(const Order& order);
    void Feed(LevelledStream& stream, std::size_t wanted);
    void ReportEnd(const Order& order);

    PlayClock mClock;
    Voice mVoice{mClock};

    std::mutex mMutex; // guards the next four
    std::condition_variable mChanged;
    Order mOrder;
    std::uint64_t mTaken = 0;
    bool mQuit = false;

    std::uint64_t mSought = 0; // this and the output belong to the deck's own thread
    std::optional<Output> mOutput;
    std::thread mThread;
};

} // namespace audio
