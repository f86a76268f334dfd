#pragma once

#include "audio/Frame.h"
#include "audio/Mp3Stream.h"

#include <filesystem>
#include <span>
#include <vector>

/// Looking at sound in tests.
namespace sound {

/// A folder of this process's own for files, removed when the process ends.
const std::filesystem::path& TestFolder();

/// The next `count` frames, fewer at the end.
std::vector<audio::Frame> Read(audio::Mp3Stream& stream, std::size_t count);

/// Passes over `count` frames by decoding them and returns how many there were.
std::size_t Skip(audio::Mp3Stream& stream, std::size_t count);

/// The largest difference between the frames of `part` and those at the same places in `whole`,
/// which is at least as long.
float Difference(std::span<const audio::Frame> part, std::span<const audio::Frame> whole);

/// The largest step between two neighbouring frames.
float Roughness(std::span<const audio::Frame> frames);

/// Pitch of a tone in Hz.
double Pitch(std::span<const audio::Frame> frames, int rate);

} // namespace sound
