#include "tools/songs/Mp3.h"

#include <algorithm>
#include <fstream>
#include <lame/lame.h>
#include <memory>
#include <stdexcept>

namespace songs {

namespace {

using Bytes = std::vector<unsigned char>;

struct CloseEncoder {
    void operator()(lame_t encoder) const { lame_close(encoder); }
};
using Encoder = std::unique_ptr<lame_global_flags, CloseEncoder>;

constexpr int kBitRate = 128;      // kbit/s
constexpr int kQuality = 7;        // of 0 (best) to 9 (fastest)
constexpr float kOwnScale = 0.95F; // what the encoder softens sounds by at this bit rate
constexpr int kPiece = 1152 * 64;  // samples encoded at a time

Encoder OpenEncoder() {
    Encoder encoder(lame_init());
    if (!encoder)
        throw std::runtime_error("the MP3 encoder does not start");
    lame_set_in_samplerate(encoder.get(), kSampleRate);
    lame_set_num_channels(encoder.get(), 2);
    lame_set_mode(encoder.get(), JOINT_STEREO);
    lame_set_brate(encoder.get(), kBitRate);
    lame_set_quality(encoder.get(), kQuality);
    lame_set_scale(encoder.get(), 1 / kOwnScale);
    if (lame_init_params(encoder.get()) < 0)
        throw std::runtime_error("the MP3 encoder refuses its settings");
    return encoder;
}

void AppendEncoded(int size, const Bytes& buffer, Bytes& mp3) {
    if (size < 0)
        throw std::runtime_error("the MP3 encoder fails");
    mp3.insert(mp3.end(), buffer.begin(), buffer.begin() + size);
}

Bytes Encode(const Stereo& sound) {
    const Encoder encoder = OpenEncoder();
    Bytes buffer(kPiece * 5 / 4 + 7200); // what the encoder may need
    const int room = static_cast<int>(buffer.size());
    Bytes mp3;
    for (std::size_t start = 0; start < sound.size(); start += kPiece) {
        const auto count = static_cast<int>(std::min<std::size_t>(kPiece, sound.size() - start));
        AppendEncoded(lame_encode_buffer_interleaved_ieee_float(encoder.get(), &sound[start].left,
                                                                count, buffer.data(), room),
                      buffer, mp3);
    }
    AppendEncoded(lame_encode_flush(encoder.get(), buffer.data(), room), buffer, mp3);
    // The first frame was left empty for what is known only now.
    lame_get_lametag_frame(encoder.get(), mp3.data(), mp3.size());
    return mp3;
}

} // namespace

void WriteMp3(const Stereo& sound, const std::filesystem::path& file) {
    Bytes mp3 = Encode(sound);
    mp3.push_back(0);
    std::ofstream out(file, std::ios::binary);
    out.write(reinterpret_cast<const char*>(mp3.data()), static_cast<std::streamsize>(mp3.size()));
    out.close();
    if (!out)
        throw std::runtime_error("cannot write " + file.string());
}

} // namespace songs
