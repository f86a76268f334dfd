#pragma once

#include "tools/songs/Sound.h"

#include <initializer_list>

namespace songs {

/// The loudness of a sound of one or more equally long channels in LUFS: K-weighted and gated
/// (ITU-R BS.1770-4). Very low for silence.
double Loudness(std::initializer_list<const Samples*> channels);

} // namespace songs
