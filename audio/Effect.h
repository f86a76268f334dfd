#pragma once

#include "audio/Overlay.h"

#include <QString>

namespace audio {

/// A short sound of the program's own; see assets/sounds.
enum class Effect { Right, Wrong, Fanfare };

/// Plays it at once over whatever else is heard, through the program's clip player. It is dropped
/// if no sound device begins with it within 0.3 seconds. Called on the user interface's thread;
/// returns at once.
void Play(Effect effect);

/// Its frames; null in a program that was linked without the sounds.
const Jingle& JingleOf(Effect effect);

/// Reads a sound that the build made: frames of 16 bits for left and 16 for right, the lower byte
/// first. Null if there is nothing to read.
Jingle ReadJingle(const QString& file);

} // namespace audio
