#include "audio/Meter.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace audio {

namespace {

int ModeFor(Meter::Of what) {
    switch (what) {
    case Meter::Of::Loudness:
        return EBUR128_MODE_I;
    case Meter::Of::TruePeak:
        return EBUR128_MODE_TRUE_PEAK;
    case Meter::Of::Both:
        break;
    }
    return EBUR128_MODE_I | EBUR128_MODE_TRUE_PEAK;
}

} // namespace

Meter::Meter(int rate, Of what)
    : mState(ebur128_init(2, static_cast<unsigned long>(rate), ModeFor(what))) {
    if (!mState)
        throw std::bad_alloc();
}

void Meter::Add(std::span<const Frame> frames) {
    if (!frames.empty())
        ebur128_add_frames_float(mState.get(), &frames.front().left, frames.size());
}

double Meter::Loudness() const {
    double lufs = 0;
    ebur128_loudness_global(mState.get(), &lufs);
    return lufs;
}

double Meter::Momentary() const {
    double lufs = 0;
    ebur128_loudness_momentary(mState.get(), &lufs);
    return lufs;
}

double Meter::TruePeak() const { return Largest(ebur128_true_peak); }

double Meter::LastTruePeak() const { return Largest(ebur128_prev_true_peak); }

double Meter::Largest(Reading reading) const {
    double largest = 0;
    for (unsigned channel = 0; channel < mState->channels; ++channel) {
        double peak = 0;
        reading(mState.get(), channel, &peak);
        largest = std::max(largest, peak);
    }
    return largest;
}

double LoudestMoment(std::span<const Frame> frames, int rate) {
    Meter meter(rate, Meter::Of::Loudness);
    double loudest = -HUGE_VAL;
    while (!frames.empty()) {
        const std::size_t part = std::min(frames.size(), static_cast<std::size_t>(rate / 100));
        meter.Add(frames.first(part));
        loudest = std::max(loudest, meter.Momentary());
        frames = frames.subspan(part);
    }
    return loudest;
}

} // namespace audio
