#pragma once

#include <string>
#include <vector>

/// Makes MP3 files whose sound tells the time: a sine tone that changes its pitch every half
/// second, so that a piece of sound shows where in the file it came from.
namespace tonefile {

/// The pitch in Hz `seconds` after the start; repeats after 8 seconds.
double Pitch(double seconds);

struct Encoding {
    int rate = 44100;
    int channels = 2;
    int kbps = 128;
    bool variable = false; ///< variable bit rate; `kbps` is not used then
    bool header = true;    ///< a leading frame with length and gapless information
    double volume = 0.5;   ///< of the sine, which is the peak; 1 is full scale
    double pitch = 0;      ///< in Hz; 0 for one that tells the time
    double decay = 0; ///< how fast each half second dies away: by the factor exp(-decay) a second
};

/// The bytes of an MP3 file of that many seconds.
std::string Encode(double seconds, const Encoding& encoding = {});

/// A kind of file found in the wild.
struct Kind {
    std::string name;
    std::string (*make)() = nullptr; ///< encodes the bytes
    double length = 0;               ///< what is really to be heard, in seconds
    double tolerance = 0;            ///< of `length`; 0 where it is known to the sample
    double delay = 0;                ///< seconds by which the tone comes late
};

/// All kinds that the player must cope with, from 5 seconds to 60 minutes long.
std::vector<Kind> AllKinds();

} // namespace tonefile
