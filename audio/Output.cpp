#define SDL_MAIN_HANDLED

#include "audio/Output.h"

#include "audio/AlsaMessages.h"
#include "audio/Voice.h"

#include <SDL.h>

namespace audio {

namespace {

constexpr int kBuffersPerSecond = 100;

void SDLCALL FillDevice(void* voice, Uint8* bytes, int length) {
    auto* frames = reinterpret_cast<Frame*>(bytes);
    const std::size_t count = static_cast<std::size_t>(length) / sizeof(Frame);
    static_cast<Voice*>(voice)->Fill({frames, count});
}

bool StartSdl() {
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_APP_NAME, "Songrush");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0)
        return false;
    SilenceAlsaMessages();
    return true;
}

} // namespace

Output::~Output() {
    Close();
    if (mStarted)
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    SDL_TLSCleanup(); // on a thread that SDL did not make nobody else does it
}

void Output::Open(int rate) {
    if (mRate == rate)
        return;
    Close();
    mRate = rate;
    if (!OpenDevice(rate))
        mSilent.Open(rate);
}

bool Output::OpenDevice(int rate) {
    mStarted = mStarted || StartSdl();
    if (!mStarted)
        return false;
    SDL_AudioSpec wanted = {};
    wanted.freq = rate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(rate / kBuffersPerSecond);
    wanted.callback = FillDevice;
    wanted.userdata = &mVoice;
    mDevice = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (mDevice == 0)
        return false;
    SDL_PauseAudioDevice(mDevice, 0);
    return true;
}

void Output::Close() {
    if (mDevice != 0)
        SDL_CloseAudioDevice(mDevice);
    mSilent.Close();
    mDevice = 0;
    mRate = 0;
}

} // namespace audio
