#pragma once

#include "tools/songs/Sound.h"

namespace songs {

/// Adds what a small room makes of `dry` to both channels, which are as long as it.
void AddRoom(const Samples& dry, Stereo& sound);

} // namespace songs
