#pragma once

#include "tools/songs/Sound.h"

namespace songs {

/// Turns the sound down, gently and in time, wherever a sample would be beyond `ceiling` (full
/// scale is 1).
void Limit(Stereo& sound, float ceiling);

} // namespace songs
