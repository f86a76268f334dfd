#pragma once

#include <filesystem>

namespace platform {

/// Shows a file in the desktop's file manager, selected where that can be asked for. Returns at
/// once; does nothing on a desktop without one.
void ShowInFolder(const std::filesystem::path& file);

} // namespace platform
