#include "audio/c_XAudio.h"

#include "audio/Deck.h"
#include "audio/LevelledStream.h"
#include "audio/Mp3Stream.h"
#include "audio/Sdl.h"
#include "audio/SongMeter.h"

#include <algorithm>
#include <utility>

std::unique_ptr<c_XAudio> gAudio;

c_XAudio& Audio() {
    if (!gAudio)
        gAudio = std::make_unique<c_XAudio>();
    return *gAudio;
}

c_XAudio::c_XAudio()
    : mDeck(std::make_unique<audio::Deck>()), mMeter(std::make_unique<audio::SongMeter>()) {
    audio::LoadSdl(); // now, so that the first song need not wait for it when it is to be heard
}

c_XAudio::~c_XAudio() = default;

double c_XAudio::Length() const {
    if (!mEverOpened)
        return -1;
    return mStream ? mStream->Length() : 0;
}

double c_XAudio::Position() const { return mStream ? mDeck->Position() : Length(); }

std::int16_t c_XAudio::OpenFile(const std::filesystem::path& path) {
    if (mStream)
        mDeck->Load(nullptr); // silence first: looking through a long file takes a moment
    mMeter->Abandon();
    mStream.reset();
    std::unique_ptr<audio::Mp3Stream> stream = audio::Mp3Stream::Open(path);
    if (!stream)
        return 0;
    mStream = std::make_shared<audio::LevelledStream>(std::move(stream), mMeter->Measure(path));
    mDeck->Load(mStream);
    mEverOpened = true;
    return 1;
}

std::int16_t c_XAudio::SeekTo(double position) {
    if (mStream)
        mDeck->Seek(position > 0 ? std::min(position, Length()) : 0);
    return 0;
}

std::int16_t c_XAudio::Play() {
    if (mStream) {
        mPaused = false;
        mDeck->Run();
    }
    return 1;
}

void c_XAudio::StopPlay() {
    if (!mStream)
        return;
    mDeck->Halt();
    mDeck->Seek(0);
}

void c_XAudio::PausePlay() {
    if (!mStream)
        return;
    if (mPaused)
        mDeck->Run();
    else
        mDeck->Halt();
    mPaused = !mPaused;
}

void c_XAudio::SetRate(double rate) {
    if (mStream && rate >= 0.125 && rate <= 8)
        mDeck->SetSpeed(rate);
}
