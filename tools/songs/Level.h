#pragma once

#include "tools/songs/Sound.h"

namespace songs {

/// Brings the sound to the loudness that all songs have, with its peaks limited below full scale
/// by what an encoder may add.
void Level(Stereo& sound);

} // namespace songs
