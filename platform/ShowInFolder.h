#pragma once

#include <filesystem>

namespace platform {

/// Shows a file in the desktop's file manager, selected where that can be asked for. Returns at
/// once; a desktop without one is passed over.
void ShowInFolder(const std::filesystem::path& file);

} // namespace platform
