#pragma once

namespace platform {

/// Ends this process and starts the program anew with the same arguments. Called at the very end,
/// when nothing of the program is left that another copy would disturb; returns only on failure.
void Restart(char* arguments[]);

} // namespace platform
