#pragma once

/// How fast songs are read.
enum class Disk {
    Fast,
    FiveMegabytes, ///< five megabytes a second
    Stalls,        ///< for three seconds at every 40th read
};

void SetDisk(Disk disk);
