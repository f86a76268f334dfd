#pragma once

#include "audio/Frame.h"

#include <ebur128.h>
#include <memory>
#include <span>

namespace audio {

/// Measures sound by EBU R128 (ITU-R BS.1770): its loudness or its true peak, which is that of the
/// curve through the samples, as a loudspeaker plays it. Used by one thread.
class Meter {
public:
    enum class Of { Loudness, TruePeak, Both };

    /// For sound of `rate` frames a second.
    Meter(int rate, Of what);

    /// Adds the sound that follows what was added before.
    void Add(std::span<const Frame> frames);

    /// Integrated loudness in LUFS, gated; minus infinity for silence and below 0.4 seconds.
    double Loudness() const;

    /// The loudness of the last 0.4 seconds, not gated.
    double Momentary() const;

    /// The largest true peak; 1 is full scale.
    double TruePeak() const;

    /// The largest true peak of what was added last, 6 samples late.
    double LastTruePeak() const;

private:
    struct Deleter {
        void operator()(ebur128_state* state) const { ebur128_destroy(&state); }
    };
    using Reading = int (*)(ebur128_state*, unsigned, double*);

    double Largest(Reading reading) const;

    std::unique_ptr<ebur128_state, Deleter> mState;
};

/// The loudness of the loudest 0.4 seconds, in LUFS, by which sounds are measured that are too
/// short to be gated.
double LoudestMoment(std::span<const Frame> frames, int rate);

} // namespace audio
