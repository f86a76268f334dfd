#pragma once

#include <stdexcept>

namespace songs {

/// What is wrong with a score; "file:line: text" once it leaves `ReadScore`.
struct ScoreError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace songs
