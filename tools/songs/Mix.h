#pragma once

#include "tools/songs/Performance.h"
#include "tools/songs/Sound.h"

namespace songs {

/// Sounds all parts in a small room, balanced against each other, with a breath of silence before
/// and a fading end after. Its own loudness is by chance.
Stereo Mix(const Performance& performance);

} // namespace songs
