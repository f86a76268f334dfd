#include "tests/audio/ToneFile.h"

#include <cmath>
#include <lame/lame.h>
#include <memory>
#include <numbers>
#include <vector>

namespace tonefile {

namespace {

using Lame = std::unique_ptr<lame_global_flags, decltype(&lame_close)>;

Lame Encoder(const Encoding& encoding) {
    Lame lame(lame_init(), lame_close);
    lame_set_in_samplerate(lame.get(), encoding.rate);
    lame_set_out_samplerate(lame.get(), encoding.rate);
    lame_set_mode(lame.get(), encoding.mono ? MONO : JOINT_STEREO);
    lame_set_quality(lame.get(), 7);
    lame_set_bWriteVbrTag(lame.get(), encoding.header ? 1 : 0);
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
        phase += 2 * std::numbers::pi * Pitch(time) / encoding.rate;
    }
    return samples;
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

} // namespace tonefile
