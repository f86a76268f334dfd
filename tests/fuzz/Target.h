#pragma once

#include <string>
#include <vector>

namespace fuzz {

/// Something that reads what others have written. It is run with any bytes at all, which it must
/// survive; what it promises all the same, its function expects as a test does.
class Target {
public:
    /// Targets live as long as the program.
    Target(const char* name, void (*run)(const std::string& bytes)) : mName(name), mRun(run) {
        All().push_back(this);
    }
    Target(const Target&) = delete;
    Target& operator=(const Target&) = delete;

    /// The targets that are linked into the program.
    static std::vector<const Target*>& All() {
        static std::vector<const Target*> targets;
        return targets;
    }

    /// Also that of the folder of its corpus.
    const char* Name() const { return mName; }

    void Run(const std::string& bytes) const { mRun(bytes); }

private:
    const char* mName;
    void (*mRun)(const std::string& bytes);
};

} // namespace fuzz
