#pragma once

namespace platform {

/// Begins to read the system's list of fonts on a thread of its own, because the first text waits
/// for it. To be called before the application object is made, which takes as long. Only where the
/// list is fontconfig's.
void PreloadFontList();

} // namespace platform
