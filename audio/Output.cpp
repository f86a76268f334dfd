#include "audio/Output.h"

#include "audio/AlsaMessages.h"
#include "audio/Sdl.h"
#include "audio/Voice.h"

#include <atomic>

namespace audio {

namespace {

constexpr int kBuffersPerSecond = 100;

std::atomic<bool> gNoDevice = false;

void SDLCALL FillDevice(void* voice, Uint8* bytes, int length) {
    auto* frames = reinterpret_cast<Frame*>(bytes);
    const std::size_t count = static_cast<std::size_t>(length) / sizeof(Frame);
    static_cast<Voice*>(voice)->Fill({frames, count});
}

bool StartSdl(const Sdl& sdl) {
    sdl.SetMainReady();
    sdl.SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    sdl.SetHint(SDL_HINT_APP_NAME, "Songrush");
    if (sdl.InitSubSystem(SDL_INIT_AUDIO) != 0)
        return false;
    SilenceAlsaMessages();
    return true;
}

} // namespace

bool NoDevice() { return gNoDevice; }

Output::Output(Voice& voice) : mSdl(LoadSdl()), mVoice(voice), mSilent(voice) {}

Output::~Output() {
    Close();
    if (mSdl == nullptr)
        return;
    if (mStarted)
        mSdl->QuitSubSystem(SDL_INIT_AUDIO);
    mSdl->TLSCleanup(); // on a thread that SDL did not make nobody else does it
}

void Output::Open(int rate) {
    if (mRate == rate)
        return;
    Close();
    mRate = rate;
    gNoDevice = !OpenDevice(rate);
    if (gNoDevice)
        mSilent.Open(rate);
}

bool Output::OpenDevice(int rate) {
    if (mSdl == nullptr)
        return false;
    mStarted = mStarted || StartSdl(*mSdl);
    if (!mStarted)
        return false;
    SDL_AudioSpec wanted = {};
    wanted.freq = rate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(rate / kBuffersPerSecond);
    wanted.callback = FillDevice;
    wanted.userdata = &mVoice;
    mDevice = mSdl->OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (mDevice == 0)
        return false;
    mSdl->PauseAudioDevice(mDevice, 0);
    return true;
}

void Output::Close() {
    if (mDevice != 0)
        mSdl->CloseAudioDevice(mDevice);
    mSilent.Close();
    mDevice = 0;
    mRate = 0;
}

} // namespace audio
