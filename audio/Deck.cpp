#include "audio/Deck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace audio {

using namespace std::chrono_literals;

namespace {

/// Enough to be heard until the device is open and the feeding has begun.
constexpr std::size_t kFirstBlock = 4096;
constexpr auto kFeedPause = 20ms;
/// How long a device stays open in silence: the next song usually follows at once.
constexpr auto kLinger = 100ms;
/// A device that has not asked for frames for so long is given up.
constexpr auto kFadeLimit = 300ms;

} // namespace

Deck::~Deck() {
    if (!mThread.joinable())
        return;
    {
        const std::lock_guard lock(mMutex);
        mQuit = true;
    }
    mChanged.notify_one();
    mThread.join();
}

void Deck::Load(std::shared_ptr<LevelledStream> stream) {
    const std::lock_guard lock(mMutex);
    mOrder.stream = std::move(stream);
    mOrder.run = false;
    mOrder.from = 0;
    ++mOrder.seek;
    SetSpeed(1);
    Submit(0);
}

void Deck::Run() {
    const std::lock_guard lock(mMutex);
    if (mOrder.run)
        return;
    mOrder.run = true;
    Submit(Position());
    if (!mThread.joinable())
        mThread = std::thread(&Deck::Work, this);
}

void Deck::Halt() {
    const std::lock_guard lock(mMutex);
    if (!mOrder.run)
        return;
    mOrder.run = false;
    Submit(Position());
}

void Deck::Seek(double seconds) {
    const std::lock_guard lock(mMutex);
    mOrder.from = std::llround(seconds * mOrder.stream->Rate());
    ++mOrder.seek;
    Submit(seconds);
}

double Deck::Position() {
    const double heard = mClock.Position(std::chrono::steady_clock::now());
    return std::min(heard, mOrder.stream->Length());
}

/// With the mutex held: makes the order as it stands the newest, the position being known.
void Deck::Submit(double position) {
    mClock.Begin(++mOrder.number, position);
    mChanged.notify_one();
}

void Deck::Work() {
    mOutput.emplace(mVoice);
    while (const std::optional<Order> order = NextOrder()) {
        FallSilent();
        Reposition(*order);
        if (order->run)
            Sound(*order);
        else if (!Superseded(kLinger))
            mOutput->Close();
    }
    FallSilent();
    mOutput.reset();
}

/// Sleeps until there is an order not carried out yet; nothing when the deck goes away.
std::optional<Deck::Order> Deck::NextOrder() {
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return mQuit || mOrder.number != mTaken; });
    if (mQuit)
        return std::nullopt;
    mTaken = mOrder.number;
    return mOrder;
}

/// Sleeps for `patience` or until there is something newer to do; returns whether there is.
bool Deck::Superseded(std::chrono::milliseconds patience) {
    std::unique_lock lock(mMutex);
    return mChanged.wait_for(lock, patience, [this] { return mQuit || mOrder.number != mTaken; });
}

/// Returns when the device takes no more frames out of the voice.
void Deck::FallSilent() {
    mVoice.FadeOut();
    const auto limit = std::chrono::steady_clock::now() + kFadeLimit;
    while (mOutput->IsOpen() && !mVoice.Silent() && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(1ms);
    if (!mVoice.Silent()) {
        mOutput->Close();
        mVoice.Cut();
    }
}

void Deck::Reposition(const Order& order) {
    if (!order.stream || order.seek == mSought)
        return;
    order.stream->SeekTo(order.from);
    mVoice.Load(order.stream->Rate(), order.from);
    mSought = order.seek;
}

/// Plays until the song's end or until there is something newer to do.
void Deck::Sound(const Order& order) {
    Feed(*order.stream, kFirstBlock);
    if (!mVoice.Drained()) {
        mVoice.Start(order.number);
        mOutput->Open(order.stream->Rate());
    }
    while (!mVoice.Drained()) {
        Feed(*order.stream, FrameRing::kCapacity);
        if (Superseded(kFeedPause))
            return;
    }
    mOutput->Close();
    ReportEnd(order);
}

/// Decodes until `wanted` frames are waiting or the song ends.
void Deck::Feed(LevelledStream& stream, std::size_t wanted) {
    std::array<Frame, 1152> block;
    while (!mVoice.Complete() && mVoice.Waiting() < wanted) {
        const std::span room(block.data(), std::min(block.size(), mVoice.Space()));
        const std::size_t got = stream.Read(room);
        mVoice.Push(room.first(got));
        if (got == 0)
            mVoice.Finish();
    }
}

void Deck::ReportEnd(const Order& order) {
    const std::lock_guard lock(mMutex);
    if (mOrder.number != order.number)
        return;
    mOrder.run = false;
    mClock.Begin(order.number, order.stream->Length());
}

} // namespace audio
