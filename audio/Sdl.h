#pragma once

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace audio {

/// What the program uses of SDL.
struct Sdl {
    decltype(&SDL_SetMainReady) SetMainReady;
    decltype(&SDL_SetHint) SetHint;
    decltype(&SDL_InitSubSystem) InitSubSystem;
    decltype(&SDL_QuitSubSystem) QuitSubSystem;
    decltype(&SDL_TLSCleanup) TLSCleanup;
    decltype(&SDL_OpenAudioDevice) OpenAudioDevice;
    decltype(&SDL_PauseAudioDevice) PauseAudioDevice;
    decltype(&SDL_GetAudioDeviceStatus) GetAudioDeviceStatus;
    decltype(&SDL_CloseAudioDevice) CloseAudioDevice;
};

/// Has these functions called instead by all devices that are made from now on; null for SDL's.
void ReplaceSdl(const Sdl* sdl);

/// SDL, loaded by the first call, from any thread; null where there is none. It brings thirty
/// libraries with it, for which the program's start need not wait.
const Sdl* LoadSdl();

} // namespace audio
