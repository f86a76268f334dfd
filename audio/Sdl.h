#pragma once

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace audio {

/// The functions of SDL that the program uses.
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

/// Makes all devices created from now on call these functions instead; null for SDL's own.
void ReplaceSdl(const Sdl* sdl);

/// SDL, loaded by the first call, on any thread; null if it is not installed. It is loaded late
/// because the thirty libraries that it needs would slow the program's start.
const Sdl* LoadSdl();

} // namespace audio
