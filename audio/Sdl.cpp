#include "audio/Sdl.h"

#include <QLibrary>
#include <atomic>
#include <optional>

namespace audio {

namespace {

std::atomic<const Sdl*> gInstead = nullptr;

template <typename Function> bool Resolve(QLibrary& library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(library.resolve(name));
    return function != nullptr;
}

std::optional<Sdl> Load() {
    QLibrary library(QStringLiteral("SDL2-2.0"), 0);
    library.setLoadHints(QLibrary::PreventUnloadHint);
    if (!library.load())
        library.setFileName(QStringLiteral("SDL2")); // its name where names carry no version
    Sdl sdl;
    const bool complete = Resolve(library, "SDL_SetMainReady", sdl.SetMainReady) &&
                          Resolve(library, "SDL_SetHint", sdl.SetHint) &&
                          Resolve(library, "SDL_InitSubSystem", sdl.InitSubSystem) &&
                          Resolve(library, "SDL_QuitSubSystem", sdl.QuitSubSystem) &&
                          Resolve(library, "SDL_TLSCleanup", sdl.TLSCleanup) &&
                          Resolve(library, "SDL_OpenAudioDevice", sdl.OpenAudioDevice) &&
                          Resolve(library, "SDL_PauseAudioDevice", sdl.PauseAudioDevice) &&
                          Resolve(library, "SDL_GetAudioDeviceStatus", sdl.GetAudioDeviceStatus) &&
                          Resolve(library, "SDL_CloseAudioDevice", sdl.CloseAudioDevice);
    return complete ? std::optional(sdl) : std::nullopt;
}

} // namespace

void ReplaceSdl(const Sdl* sdl) { gInstead = sdl; }

const Sdl* LoadSdl() {
    if (const Sdl* instead = gInstead)
        return instead;
    static const std::optional<Sdl> sdl = Load();
    return sdl ? &*sdl : nullptr;
}

} // namespace audio
