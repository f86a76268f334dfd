#include "audio/c_XAudio.h"

#include "audio/Cue.h"
#include "audio/Deck.h"
#include "audio/Track.h"

#include <algorithm>

std::unique_ptr<c_XAudio> gAudio;

c_XAudio& Audio() {
    if (!gAudio)
        gAudio = std::make_unique<c_XAudio>();
    return *gAudio;
}

c_XAudio::c_XAudio() : mDeck(std::make_unique<audio::Deck>()) {}

c_XAudio::~c_XAudio() = default;

double c_XAudio::Length() const {
    if (!mEverOpened)
        return -1;
    return mTrack ? mTrack->Length() : 0;
}

double c_XAudio::Position() const { return mTrack ? mDeck->Position() : Length(); }

std::int16_t c_XAudio::OpenFile(const std::filesystem::path& path) {
    mDeck->Load(nullptr);
    mTrack = audio::Cue::Claim(path);
    mTrack->AwaitOpen();
    if (mTrack->Now() == audio::Track::State::Failed) {
        mTrack.reset();
        return 0;
    }
    mDeck->Load(mTrack);
    mEverOpened = true;
    return 1;
}

std::int16_t c_XAudio::SeekTo(double position) {
    if (mTrack) {
        mDeck->Seek(position > 0 ? std::min(position, Length()) : 0);
        mDeck->Expect();
    }
    return 0;
}

std::int16_t c_XAudio::Play() {
    if (mTrack) {
        mPaused = false;
        mDeck->Run();
    }
    return 1;
}

void c_XAudio::StopPlay() {
    if (!mTrack)
        return;
    mDeck->Halt();
    mDeck->Seek(0);
}

void c_XAudio::PausePlay() {
    if (!mTrack)
        return;
    if (mPaused)
        mDeck->Run();
    else
        mDeck->Halt();
    mPaused = !mPaused;
}

void c_XAudio::SetRate(double rate) {
    if (mTrack && rate >= 0.125 && rate <= 8)
        mDeck->SetSpeed(rate);
}
