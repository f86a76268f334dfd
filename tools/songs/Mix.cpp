#include "tools/songs/Mix.h"

#include "tools/songs/Loudness.h"
#include "tools/songs/Room.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace songs {

namespace {

constexpr double kBefore = 0.1; // seconds before the first note,
constexpr double kAfter = 2.0;  // after the last bar, to ring out,
constexpr double kFade = 1.5;   // of which it fades,
constexpr double kSilent = 0.1; // and at last is silent

constexpr double kMelodyLoudness = -20; // LUFS, as is the others'
constexpr double kChordsLoudness = -29;
constexpr double kBassLoudness = -28;

Samples Play(const std::vector<PlayedNote>& part, std::size_t length) {
    Samples sound(length);
    for (const PlayedNote& note : part) {
        const Tone tone{.hertz = 440 * std::exp2((note.key - 69) / 12.0),
                        .seconds = note.seconds,
                        .loudness = note.loudness};
        note.voice(tone, std::span(sound).subspan(SampleCount(kBefore + note.start)));
    }
    return sound;
}

/// Adds a part at its loudness to both channels, `pan` from -1 (left) to 1 (right), and to what
/// goes into the room.
void AddPart(const Samples& part, double loudness, double pan, Stereo& sound, Samples& room) {
    const double gain = std::pow(10, (loudness - Loudness({&part})) / 20);
    const double angle = (pan + 1) * std::numbers::pi / 4;
    const auto left = static_cast<float>(gain * std::cos(angle));
    const auto right = static_cast<float>(gain * std::sin(angle));
    const auto both = static_cast<float>(gain);
    float* toLeft = sound.left.data();
    float* toRight = sound.right.data();
    float* toRoom = room.data();
    for (const float sample : part) {
        *toLeft++ += left * sample;
        *toRight++ += right * sample;
        *toRoom++ += both * sample;
    }
}

void FadeOut(Samples& channel) {
    const std::size_t silent = SampleCount(kSilent);
    const std::size_t fade = SampleCount(kFade);
    const auto end = channel.end() - static_cast<std::ptrdiff_t>(silent);
    std::fill(end, channel.end(), 0.0F);
    for (std::size_t i = 0; i < fade; ++i) {
        const double angle = std::numbers::pi * static_cast<double>(i) / static_cast<double>(fade);
        *(end - 1 - static_cast<std::ptrdiff_t>(i)) *=
            static_cast<float>((1 - std::cos(angle)) / 2);
    }
}

} // namespace

Stereo Mix(const Performance& performance) {
    const std::size_t length = SampleCount(kBefore + performance.seconds + kAfter + kSilent);
    Stereo sound{Samples(length), Samples(length)};
    Samples room(length);
    AddPart(Play(performance.lead, length), kMelodyLoudness, 0.15, sound, room);
    AddPart(Play(performance.chords, length), kChordsLoudness, -0.45, sound, room);
    AddPart(Play(performance.bass, length), kBassLoudness, 0, sound, room);
    AddRoom(room, sound);
    FadeOut(sound.left);
    FadeOut(sound.right);
    return sound;
}

} // namespace songs
