#pragma once

class QKeyEvent;

namespace toolkit {

/// Changes the program's volume if the key is one for it: M mutes, + and - make it louder and
/// quieter. Returns whether it is one. For keys that no control has taken as text.
bool ChangeVolume(const QKeyEvent& event);

} // namespace toolkit
