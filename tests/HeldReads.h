#pragma once

#include <string>

/// Holds back all reads of files whose paths contain `name`, like a disk that stalls, until they
/// are let go or the object is destroyed. Only for POSIX systems.
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
