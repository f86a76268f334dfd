#pragma once

namespace platform {

/// Closes the messages that GTK shows in front of its dialogs, as the player would. Each of them
/// runs a loop of its own, which does not notice that the program is asked to quit.
void CloseGtkMessages();

} // namespace platform
