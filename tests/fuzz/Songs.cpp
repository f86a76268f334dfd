#include "audio/LevelledStream.h"
#include "tests/TemporaryFolder.h"
#include "tests/audio/Sound.h"
#include "tests/fuzz/Target.h"

namespace {

/// Reads from `frame` on to the end.
template <typename Stream>
std::vector<audio::Frame> ReadFrom(Stream& stream, std::int64_t frame, std::int64_t frames) {
    stream.SeekTo(frame);
    return sound::Read(stream, static_cast<std::size_t>(frames - frame) + 1);
}

void Run(const std::string& bytes) {
    static const TemporaryFolder folder;
    auto stream = audio::Mp3Stream::Open(folder.Write("song.mp3", bytes));
    if (!stream)
        return;
    const std::int64_t frames = stream->Frames();
    ASSERT_GT(frames, 0);
    ASSERT_GT(stream->Rate(), 0);
    for (const std::int64_t frame : {std::int64_t{0}, frames - 1, frames / 2, frames / 3})
        EXPECT_LE(ReadFrom(*stream, frame, frames).size(),
                  static_cast<std::size_t>(frames - frame));

    audio::LevelledStream levelled(std::move(stream), std::make_shared<audio::SongLevel>());
    const auto expectLevelled = [&](std::int64_t frame) {
        for (const audio::Frame& heard : ReadFrom(levelled, frame, frames))
            ASSERT_TRUE(std::abs(heard.left) <= 1 && std::abs(heard.right) <= 1);
    };
    expectLevelled(frames / 2);
    levelled.Listen([] { return true; });
    expectLevelled(0);
}

const fuzz::Target kSongs("songs", Run);

} // namespace
