#pragma once

#include "tools/songs/Sound.h"

namespace songs {

/// Brings the sound to the loudness that all songs are played at, so that the game need not change
/// it, with its true peaks limited below full scale by what an encoder may add.
void Level(Stereo& sound);

} // namespace songs
