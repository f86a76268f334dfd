#include "tests/audio/Sound.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <string>

namespace sound {

using audio::Frame;

const std::filesystem::path& TestFolder() {
    struct Folder {
        std::filesystem::path path = std::filesystem::temp_directory_path() /
                                     ("audio-test-" + std::to_string(std::random_device()()));
        Folder() { std::filesystem::create_directories(path); }
        ~Folder() {
            std::error_code ignored;
            std::filesystem::remove_all(path, ignored);
        }
    };
    static const Folder folder;
    return folder.path;
}

std::vector<Frame> Read(audio::Mp3Stream& stream, std::size_t count) {
    std::vector<Frame> frames(count);
    std::size_t done = 0;
    for (std::size_t got = 1; got > 0 && done < count; done += got)
        got = stream.Read(std::span(frames).subspan(done));
    frames.resize(done);
    return frames;
}

std::size_t Skip(audio::Mp3Stream& stream, std::size_t count) {
    std::vector<Frame> block(4096);
    std::size_t done = 0;
    for (std::size_t got = 1; got > 0 && done < count; done += got)
        got = stream.Read(std::span(block).first(std::min(block.size(), count - done)));
    return done;
}

float Difference(std::span<const Frame> part, std::span<const Frame> whole) {
    float largest = 0;
    for (std::size_t i = 0; i < part.size(); ++i)
        largest = std::max({largest, std::abs(part[i].left - whole[i].left),
                            std::abs(part[i].right - whole[i].right)});
    return largest;
}

float Roughness(std::span<const Frame> frames) {
    return frames.empty() ? 0 : Difference(frames.subspan(1), frames);
}

double Pitch(std::span<const Frame> frames, int rate) {
    int crossings = 0;
    for (std::size_t i = 1; i < frames.size(); ++i)
        crossings += (frames[i - 1].left < 0) != (frames[i].left < 0) ? 1 : 0;
    return crossings / 2.0 * rate / static_cast<double>(frames.size());
}

} // namespace sound
