#include "audio/Overlay.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace audio {

using namespace std::chrono_literals;

namespace {

constexpr auto kTooLate = 300ms;
constexpr float kFadeSeconds = 0.004F;

std::chrono::duration<double> Length(const std::vector<Frame>& frames) {
    return std::chrono::duration<double>(static_cast<double>(frames.size()) / kJingleRate);
}

/// Leaves levels that songs reach by themselves as they are, and compresses more to below full
/// scale.
float Limited(float sample) {
    constexpr float kKnee = 0.9F;
    constexpr float kRoom = 1 - kKnee;
    const float above = std::abs(sample) - kKnee;
    return above <= 0 ? sample : std::copysign(kKnee + kRoom * std::tanh(above / kRoom), sample);
}

} // namespace

void Overlay::Add(Jingle jingle, Time now) {
    const auto free = std::ranges::find_if(mNotes, [](const Note& note) { return !note.jingle; });
    if (free != mNotes.end())
        *free = {std::move(jingle), now};
}

bool Overlay::Sounding(Time now) const {
    return std::ranges::any_of(mNotes, [now](const Note& note) {
        if (!note.jingle)
            return false;
        const bool begun = note.next > 0;
        return now - note.asked < kTooLate + (begun ? Length(*note.jingle) : 0s);
    });
}

void Overlay::Mix(std::span<Frame> frames, int rate, Time now) noexcept {
    for (Note& note : mNotes)
        if (note.next == 0 && now - note.asked >= kTooLate)
            note.jingle.reset();
    const double speed = static_cast<double>(kJingleRate) / rate;
    const float step = 1 / (kFadeSeconds * static_cast<float>(rate));
    for (Frame& frame : frames) {
        Frame sum;
        bool heard = false;
        for (Note& note : mNotes) {
            if (!note.jingle || (mHushed && note.next == 0))
                continue;
            const Frame part = Take(note, speed);
            sum = {sum.left + part.left, sum.right + part.right};
            heard = true;
        }
        if (!heard)
            return;
        frame = {Limited(frame.left + sum.left * mGain), Limited(frame.right + sum.right * mGain)};
        if (mHushed)
            mGain = std::max(mGain - step, 0.0F);
    }
}

void Overlay::Hush() {
    mHushed = true;
    if (std::ranges::none_of(mNotes, [](const Note& note) { return note.next > 0; }))
        mGain = 0;
}

void Overlay::Cut() {
    for (Note& note : mNotes)
        if (note.next > 0)
            note = {};
    mGain = 1;
    mHushed = false;
}

/// The jingle's next frame; at its end its place becomes free.
Frame Overlay::Take(Note& note, double speed) noexcept {
    const std::vector<Frame>& frames = *note.jingle;
    const auto index = static_cast<std::size_t>(note.next);
    const Frame from = frames[index];
    const Frame to = index + 1 < frames.size() ? frames[index + 1] : Frame{};
    const auto share = static_cast<float>(note.next - static_cast<double>(index));
    note.next += speed;
    if (note.next >= static_cast<double>(frames.size()))
        note = {};
    return {from.left + (to.left - from.left) * share,
            from.right + (to.right - from.right) * share};
}

} // namespace audio
