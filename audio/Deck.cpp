#include "audio/Deck.h"

#include "audio/Reel.h"
#include "audio/Track.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace audio {

void Deck::Load(std::shared_ptr<Track> track) {
    Silence(0);
    mRunning = false;
    mReel.reset();
    mFrom = 0;
    SetSpeed(1);
    mTrack = std::move(track);
    if (mTrack)
        mOutput.Expect(mTrack->Rate());
}

void Deck::Run() {
    if (std::exchange(mRunning, true))
        return;
    mVoice->Clock().Begin(++mRun, Position());
    Sound();
}

void Deck::Halt() {
    if (std::exchange(mRunning, false))
        Silence(Position());
}

void Deck::Seek(double seconds) {
    Silence(seconds);
    mReel.reset();
    mFrom = std::llround(seconds * mTrack->Rate());
    mTrack->Seek(mFrom);
    if (mRunning)
        Sound();
}

void Deck::Expect() {
    if (!mRunning)
        mOutput.Expect(mTrack->Rate());
}

void Deck::Chime(Jingle jingle) {
    mVoice->Add(std::move(jingle));
    mOutput.Chime();
}

double Deck::Position() {
    if (mVoice->Ended(mRun))
        return mTrack->Length();
    return std::min(mVoice->Clock().Position(std::chrono::steady_clock::now()), mTrack->Length());
}

/// Lets what is heard fade; the clock stands at `position`.
void Deck::Silence(double position) {
    mVoice->Clock().Begin(++mRun, position);
    mVoice->Play(nullptr, mRun);
    mOutput.End();
    if (mTrack)
        mTrack->Pause();
}

void Deck::Sound() {
    if (!mReel)
        mTrack->Seek(mFrom);
    mReel = mTrack->Hear();
    mVoice->Play(mReel, mRun);
    mOutput.Begin(mTrack->Rate());
}

} // namespace audio
