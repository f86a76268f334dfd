#pragma once

#include <map>
#include <string>

namespace fuzz {

/// Reads what others have written. It is run with any bytes at all, which it must survive; what it
/// promises all the same, it expects as a test does.
using Run = void (*)(const std::string& bytes);

/// The targets that are linked into the program, by the folders of their corpus.
inline std::map<std::string, Run>& Targets() {
    static std::map<std::string, Run> targets;
    return targets;
}

struct Target {
    Target(const char* name, Run run) { Targets()[name] = run; }
};

} // namespace fuzz
