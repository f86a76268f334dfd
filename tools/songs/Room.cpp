#include "tools/songs/Room.h"

#include <array>

namespace songs {

namespace {

// Delays in samples without a common divisor, so that the echoes spread evenly (after Schroeder).
constexpr std::array<std::size_t, 4> kCombs = {1187, 1301, 1433, 1559};
constexpr std::array<std::size_t, 2> kAllPasses = {557, 211};
constexpr std::size_t kRightLater = 23; // makes the channels different
constexpr float kFeedback = 0.80F;
constexpr float kDamping = 0.35F; // walls swallow the high partials first
constexpr float kDiffusion = 0.6F;
constexpr float kStrength = 0.06F;

/// Adds the echoes that two walls throw to and fro.
void AddComb(const Samples& in, std::size_t delay, Samples& out) {
    Samples line(delay);
    float* const begin = line.data();
    float* const end = begin + delay;
    float* place = begin;
    float damped = 0;
    float* target = out.data();
    for (const float sample : in) {
        damped = *place + kDamping * (damped - *place);
        *target++ += *place;
        *place = sample + kFeedback * damped;
        place = place + 1 == end ? begin : place + 1;
    }
}

/// Makes the echoes denser and leaves the tone as it is.
void PassThrough(std::size_t delay, Samples& sound) {
    Samples line(delay);
    float* const begin = line.data();
    float* const end = begin + delay;
    float* place = begin;
    for (float& sample : sound) {
        const float late = *place;
        *place = sample + kDiffusion * late;
        sample = late - kDiffusion * *place;
        place = place + 1 == end ? begin : place + 1;
    }
}

void AddSide(const Samples& dry, std::size_t later, float audio::Frame::*side, Stereo& sound) {
    Samples echoes(dry.size());
    for (const std::size_t delay : kCombs)
        AddComb(dry, delay + later, echoes);
    for (const std::size_t delay : kAllPasses)
        PassThrough(delay + later, echoes);
    audio::Frame* target = sound.data();
    for (const float echo : echoes)
        target++->*side += kStrength * echo;
}

} // namespace

void AddRoom(const Samples& dry, Stereo& sound) {
    AddSide(dry, 0, &audio::Frame::left, sound);
    AddSide(dry, kRightLater, &audio::Frame::right, sound);
}

} // namespace songs
