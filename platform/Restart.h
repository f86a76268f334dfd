#pragma once

namespace platform {

/// Starts the program anew with the same arguments, where possible in place of this process. Called
/// at the very end, when nothing of the program is left that another copy would disturb; if it
/// returns, the process ends.
void Restart(char* arguments[]);

} // namespace platform
