#pragma once

namespace platform {

/// Starts reading the system's list of fonts on a thread of its own, because the first text waits
/// for it. To be called before creating the application object, which takes about as long. Does
/// nothing on systems without fontconfig.
void PreloadFontList();

} // namespace platform
