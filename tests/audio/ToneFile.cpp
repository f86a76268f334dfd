#include "tests/audio/ToneFile.h"

#include <cmath>
#include <cstddef>
#include <lame/lame.h>
#include <memory>
#include <numbers>

namespace tonefile {

using namespace std::string_literals;

namespace {

using Lame = std::unique_ptr<lame_global_flags, decltype(&lame_close)>;

Lame Encoder(const Encoding& encoding) {
    Lame lame(lame_init(), lame_close);
    lame_set_in_samplerate(lame.get(), encoding.rate);
    lame_set_out_samplerate(lame.get(), encoding.rate);
    lame_set_num_channels(lame.get(), encoding.channels);
    lame_set_mode(lame.get(), encoding.channels == 1 ? MONO : JOINT_STEREO);
    lame_set_quality(lame.get(), 7);
    lame_set_bWriteVbrTag(lame.get(), encoding.header ? 1 : 0);
    lame_set_write_id3tag_automatic(lame.get(), 0);
    if (encoding.variable)
        lame_set_VBR(lame.get(), vbr_mtrh);
    else
        lame_set_brate(lame.get(), encoding.kbps);
    lame_init_params(lame.get());
    return lame;
}

std::vector<float> Tone(double seconds, const Encoding& encoding) {
    std::vector<float> samples(static_cast<std::size_t>(std::lround(seconds * encoding.rate)));
    double phase = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = static_cast<double>(i) / encoding.rate;
        const double decay = std::exp(-encoding.decay * std::fmod(time, 0.5));
        samples[i] = static_cast<float>(encoding.volume * decay * std::sin(phase));
        const double hertz = encoding.pitch > 0 ? encoding.pitch : Pitch(time);
        phase += 2 * std::numbers::pi * hertz / encoding.rate;
    }
    return samples;
}

/// Bytes among which no decoder finds the start of a frame.
std::string Garbage(std::size_t size) {
    std::string bytes(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 7919 % 251);
    return bytes;
}

std::string BigId3v2() {
    constexpr int kSize = (0x7A << 14) + (9 << 7); // seven bits a byte in the header
    return "ID3\x03\0\0\0\x7A\x09\0"s + std::string(kSize, '\0');
}

std::string Headerless() { return Encode(5, {.header = false}); }

std::string InnerGarbage() {
    const std::string bytes = Headerless();
    std::size_t at = 0; // goes from frame to frame, 417 bytes and perhaps a padding byte each
    while (at < bytes.size() / 2)
        at += 417 + ((static_cast<unsigned char>(bytes[at + 2]) >> 1) & 1u);
    return bytes.substr(0, at) + Garbage(3000) + bytes.substr(at);
}

std::string SixtyMinutes() {
    const std::string part = Encode(8, {.rate = 22050, .channels = 1, .kbps = 32, .header = false});
    std::string bytes;
    for (int i = 0; i < 450; ++i)
        bytes += part;
    return bytes;
}

} // namespace

double Pitch(double seconds) {
    const int step = static_cast<int>(std::floor(seconds * 2)) % 16;
    return 400 + 100 * step;
}

std::string Encode(double seconds, const Encoding& encoding) {
    const Lame lame = Encoder(encoding);
    const std::vector<float> samples = Tone(seconds, encoding);
    std::string bytes(samples.size() * 5 / 4 + 16384, '\0');
    auto* out = reinterpret_cast<unsigned char*>(bytes.data());
    const int room = static_cast<int>(bytes.size());
    int size = lame_encode_buffer_ieee_float(lame.get(), samples.data(), samples.data(),
                                             static_cast<int>(samples.size()), out, room);
    size += lame_encode_flush(lame.get(), out + size, room - size);
    if (encoding.header) // its figures are known only now
        lame_get_lametag_frame(lame.get(), out, bytes.size());
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

std::vector<Kind> AllKinds() {
    constexpr double kFrame = 1152.0 / 44100;
    // Without a header frame the encoder's delay and padding are heard too.
    constexpr double kPlain = 193 * kFrame;
    constexpr double kJoined = 387 * kFrame; // the second header frame is heard as silence
    constexpr double kDelay = 1105.0 / 44100;
    return {
        {"ConstantRate", [] { return Encode(5); }, 5},
        {"ConstantRateWithoutHeader", Headerless, kPlain, 0, kDelay},
        {"VariableRate", [] { return Encode(5, {.variable = true}); }, 5},
        {"Mono22kHz", [] { return Encode(5, {.rate = 22050, .channels = 1, .kbps = 64}); }, 5},
        {"BigId3v2", [] { return BigId3v2() + Encode(5); }, 5},
        {"LeadingGarbage", [] { return Garbage(5000) + Headerless(); }, kPlain, 0, kDelay},
        {"InnerGarbage", InnerGarbage, kPlain, kFrame, kDelay},
        {"TwoFilesJoined", [] { return Encode(5) + Encode(5); }, kJoined, 0, kDelay},
        {"Truncated", [] { return Encode(5).substr(0, 40000); }, 2.5, 2 * kFrame},
        {"SixtyMinutes", SixtyMinutes, 3600, 45, kDelay},
    };
}

} // namespace tonefile
