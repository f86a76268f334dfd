#pragma once

#include <string>

/// Holds back the reads of all files whose paths hold `name`, as a disk that stalls does, until it
/// is let go or goes. Only where files are read as on POSIX systems.
class HeldReads {
public:
    explicit HeldReads(const std::string& name);
    ~HeldReads() { LetGo(); }
    HeldReads(const HeldReads&) = delete;
    HeldReads& operator=(const HeldReads&) = delete;

    void LetGo();

    /// How many reads are held back now.
    int Waiting() const;
};
