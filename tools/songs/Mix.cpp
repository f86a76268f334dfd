#include "tools/songs/Mix.h"

#include "audio/Meter.h"
#include "tools/songs/Room.h"
#include "tools/songs/voices/Noise.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace songs {

namespace {

constexpr double kBefore = 0.1; // seconds before the first note,
constexpr double kAfter = 2.0;  // after the last bar, to ring out,
constexpr double kFade = 1.5;   // of which it fades,
constexpr double kSilent = 0.1; // and at last is silent

constexpr double kUnevenTime = 0.006; // seconds before or after the beat
constexpr float kUnevenLoudness = 0.1F;

constexpr double kMelodyLoudness = -20; // LUFS, as is the others'
constexpr double kChordsLoudness = -27;
constexpr double kBassLoudness = -27;

/// Nobody plays quite in time or one note as loud as the next; `player` is anything but 0.
Samples Play(const std::vector<PlayedNote>& part, std::uint32_t player, std::size_t length) {
    Samples sound(length);
    Noise chance(player);
    for (const PlayedNote& note : part) {
        const double late = kUnevenTime * static_cast<double>(chance.Next());
        const Tone tone{.hertz = 440 * std::exp2((note.key - 69) / 12.0),
                        .seconds = note.seconds,
                        .loudness = note.loudness * (1 + kUnevenLoudness * chance.Next())};
        note.voice(tone, std::span(sound).subspan(SampleCount(kBefore + note.start + late)));
    }
    return sound;
}

double Loudness(const Samples& part) {
    audio::Meter meter(kSampleRate, audio::Meter::Of::Loudness, 1);
    meter.Add(part);
    return meter.Loudness();
}

/// Adds a part at its loudness to both channels, `pan` from -1 (left) to 1 (right), and to what
/// goes into the room.
void AddPart(const Samples& part, double loudness, double pan, Stereo& sound, Samples& room) {
    const double gain = std::pow(10, (loudness - Loudness(part)) / 20);
    const double angle = (pan + 1) * std::numbers::pi / 4;
    const auto left = static_cast<float>(gain * std::cos(angle));
    const auto right = static_cast<float>(gain * std::sin(angle));
    const auto both = static_cast<float>(gain);
    for (std::size_t i = 0; i < part.size(); ++i) {
        sound[i].left += left * part[i];
        sound[i].right += right * part[i];
        room[i] += both * part[i];
    }
}

void FadeOut(Stereo& sound) {
    const std::size_t end = sound.size() - SampleCount(kSilent);
    const std::size_t fade = SampleCount(kFade);
    for (std::size_t i = 0; i < fade; ++i) {
        const double angle = std::numbers::pi * static_cast<double>(i) / static_cast<double>(fade);
        const auto gain = static_cast<float>((1 - std::cos(angle)) / 2);
        audio::Frame& frame = sound[end - 1 - i];
        frame = {frame.left * gain, frame.right * gain};
    }
    std::fill(sound.begin() + static_cast<std::ptrdiff_t>(end), sound.end(), audio::Frame{});
}

} // namespace

Stereo Mix(const Performance& performance) {
    const std::size_t length = SampleCount(kBefore + performance.seconds + kAfter + kSilent);
    Stereo sound(length);
    Samples room(length);
    AddPart(Play(performance.lead, 1, length), kMelodyLoudness, 0.2, sound, room);
    AddPart(Play(performance.chords, 2, length), kChordsLoudness, -0.6, sound, room);
    AddPart(Play(performance.bass, 3, length), kBassLoudness, 0.1, sound, room);
    AddRoom(room, sound);
    FadeOut(sound);
    return sound;
}

} // namespace songs
