#pragma once

namespace platform {

/// Claims the program for this user and process until the process ends, however it ends. Returns
/// false when another running copy holds it; then nothing was changed.
bool ClaimSingleInstance();

} // namespace platform
