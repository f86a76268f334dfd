#pragma once

#include "tools/songs/Score.h"

#include <istream>
#include <string>

namespace songs {

/// Reads a score; its format is told in assets/songs/README.md. `name` stands for the file in what
/// is thrown: a `ScoreError` "name:line: what is wrong".
Score ReadScore(std::istream& in, const std::string& name);

} // namespace songs
