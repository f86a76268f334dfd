#include "audio/Device.h"

#include "audio/AlsaMessages.h"
#include "audio/Sdl.h"
#include "audio/Voice.h"

#include <atomic>
#include <mutex>

namespace audio {

namespace {

constexpr int kBuffersPerSecond = 100;

/// SDL must not start and stop on two threads at a time, as it would with two players.
std::mutex gSdlMutex;

} // namespace

std::uint64_t NewDeviceNumber() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

struct Device::Listener {
    static void SDLCALL Fill(void* listener, Uint8* bytes, int length) {
        const auto* self = static_cast<const Listener*>(listener);
        auto* frames = reinterpret_cast<Frame*>(bytes);
        const std::size_t count = static_cast<std::size_t>(length) / sizeof(Frame);
        self->voice->Fill(self->number, {frames, count});
    }
    std::shared_ptr<Voice> voice;
    std::uint64_t number;
};

Device::Device(std::shared_ptr<Voice> voice) : mVoice(std::move(voice)) {}

Device::~Device() {
    Close();
    if (mSdl == nullptr)
        return;
    const std::lock_guard lock(gSdlMutex);
    if (mStarted)
        mSdl->QuitSubSystem(SDL_INIT_AUDIO);
    mSdl->TLSCleanup(); // SDL does so itself only on threads that it made
}

bool Device::Open(int rate) {
    if (!StartSdl())
        return false;
    mListener = std::make_unique<Listener>(Listener{mVoice, NewDeviceNumber()});
    SDL_AudioSpec wanted = {};
    wanted.freq = rate;
    wanted.format = AUDIO_F32SYS;
    wanted.channels = 2;
    wanted.samples = static_cast<Uint16>(rate / kBuffersPerSecond);
    wanted.callback = Listener::Fill;
    wanted.userdata = mListener.get();
    mDevice = mSdl->OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
    if (mDevice == 0)
        return false;
    mVoice->Connect(mListener->number, rate);
    mSdl->PauseAudioDevice(mDevice, 0);
    return true;
}

bool Device::StartSdl() {
    mSdl = LoadSdl();
    if (mSdl == nullptr || mStarted)
        return mStarted;
    const std::lock_guard lock(gSdlMutex);
    mSdl->SetMainReady();
    mSdl->SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    mSdl->SetHint(SDL_HINT_APP_NAME, "Songrush");
    mStarted = mSdl->InitSubSystem(SDL_INIT_AUDIO) == 0;
    if (mStarted)
        SilenceAlsaMessages();
    return mStarted;
}

bool Device::Serves() const {
    return mDevice != 0 && mVoice->Served().device == mListener->number &&
           mSdl->GetAudioDeviceStatus(mDevice) != SDL_AUDIO_STOPPED;
}

void Device::Close() {
    if (mDevice == 0)
        return;
    mSdl->CloseAudioDevice(mDevice);
    mVoice->Disconnect(mListener->number);
    mDevice = 0;
}

} // namespace audio
