#pragma once

#include "audio/Overlay.h"

#include <QString>

namespace audio {

/// A short sound of the program's own; see assets/sounds.
enum class Effect { Right, Wrong, Fanfare };

/// Has it heard at once beside whatever else is heard, through the program's clip player. Not at
/// all if no sound device begins with it within 0.3 seconds. Called by the thread of the user
/// interface; returns at once.
void Play(Effect effect);

/// Its frames; none in a program that it was not linked to.
const Jingle& JingleOf(Effect effect);

/// What the build has made in `file`: frames as 16 bits to the left and 16 to the right, the lower
/// byte first. None if there is nothing to read.
Jingle ReadJingle(const QString& file);

} // namespace audio
