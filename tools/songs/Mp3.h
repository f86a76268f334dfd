#pragma once

#include "tools/songs/Sound.h"

#include <filesystem>

namespace songs {

/// Writes the sound as an MP3 file of 128 kbit/s joint stereo, with the frame that tells players
/// the exact length, and one zero byte at the end for a tag to replace. Throws
/// `std::runtime_error`.
void WriteMp3(const Stereo& sound, const std::filesystem::path& file);

} // namespace songs
