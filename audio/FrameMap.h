#pragma once

#include <cstdint>
#include <vector>

namespace audio {

/// Where each MPEG frame of a file begins when all are played at one rate, though their own rates
/// and sizes differ. MPEG frames are numbered from 0.
class FrameMap {
public:
    /// MPEG frame `number`, which begins at frame `start`.
    struct Place {
        std::int64_t number = 0;
        std::int64_t start = 0;
    };

    /// Appends an MPEG frame that lasts `length` frames when played; above 0.
    void Add(double length);

    /// How many frames there are to play.
    std::int64_t Frames() const { return static_cast<std::int64_t>(mEnd); }

    /// The MPEG frame that holds `frame`, which is from 0 to below `Frames()`.
    Place At(std::int64_t frame) const;

private:
    /// MPEG frames of one length that follow each other.
    struct Run {
        std::int64_t first = 0;
        double start = 0;
        double length = 0; // of each
    };

    std::vector<Run> mRuns;
    std::int64_t mCount = 0;
    double mEnd = 0;
};

} // namespace audio
