#pragma once

#include <string>

/// Makes MP3 files whose sound tells the time: a sine tone that goes to another pitch every half
/// second, so that what is heard shows where in the file it came from.
namespace tonefile {

/// The pitch in Hz that sounds `seconds` after the start; comes round again after 8 seconds.
double Pitch(double seconds);

struct Encoding {
    int rate = 44100;
    bool mono = false;
    int kbps = 128;
    bool variable = false; ///< variable bit rate; `kbps` is not used then
    bool header = true;    ///< a leading frame with length and gapless information
    double volume = 0.5;   ///< of the sine, which is the peak; 1 is full scale
    double decay = 0;      ///< by how much each half second dies away, as e to its power a second
};

/// The bytes of an MP3 file of that many seconds.
std::string Encode(double seconds, const Encoding& encoding = {});

} // namespace tonefile
