#include "audio/Effect.h"
#include "audio/LevelledStream.h"
#include "audio/Meter.h"
#include "audio/Mp3Stream.h"
#include "audio/SongLevel.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace fs = std::filesystem;

namespace {

struct Sound {
    double loudness = 0; // LUFS
    double truePeak = 0; // dBTP
};

struct Report {
    double seconds = 0;
    Sound file;
    double gain = 0; // dB
    Sound played;
};

double Decibels(double factor) { return 20 * std::log10(factor); }

template <typename Stream> Sound MeasureAll(Stream& stream) {
    audio::Meter meter(stream.Rate(), audio::Meter::Of::Both);
    std::array<audio::Frame, 1152> block;
    while (const std::size_t got = stream.Read(block))
        meter.Add(std::span<const audio::Frame>(block).first(got));
    return {meter.Loudness(), Decibels(meter.TruePeak())};
}

std::optional<Report> ReportOn(const fs::path& song) {
    std::unique_ptr<audio::Mp3Stream> stream = audio::Mp3Stream::Open(song);
    if (!stream)
        return std::nullopt;
    Report report{.seconds = stream->Length(), .file = MeasureAll(*stream), .played = {}};
    const auto level = std::make_shared<audio::SongLevel>();
    level->Measure(*stream);
    report.gain = Decibels(static_cast<double>(level->Gain().value_or(1)));
    audio::LevelledStream played(std::move(stream), level);
    played.SeekTo(0);
    report.played = MeasureAll(played);
    return report;
}

/// Whether a song is fit for the samples: longer than two clips, as loud as all, with room above
/// its peaks.
bool FitsAmongSamples(const Report& report) {
    return report.seconds > 60 && report.seconds < 80 &&
           std::abs(report.file.loudness - audio::kPlayedLoudness) <= 0.05 &&
           report.file.truePeak < -1;
}

/// Prints a line for the song and returns whether it is as wanted.
bool Print(const fs::path& song, bool sample) {
    const std::optional<Report> report = ReportOn(song);
    if (!report) {
        std::printf("%s cannot be played\n", song.c_str());
        return false;
    }
    const bool wrong = sample && !FitsAmongSamples(*report);
    std::printf("%8.2f %8.2f %7.2f %+7.2f %8.2f %7.2f  %s%s\n", report->seconds,
                report->file.loudness, report->file.truePeak, report->gain, report->played.loudness,
                report->played.truePeak, song.stem().c_str(), wrong ? "  <- out of limits" : "");
    return !wrong;
}

/// Prints the loudness of a short sound's loudest moment and its true peak.
bool PrintJingle(const char* file) {
    const audio::Jingle jingle = audio::ReadJingle(QString::fromLocal8Bit(file));
    if (!jingle)
        return false;
    audio::Meter meter(audio::kJingleRate, audio::Meter::Of::TruePeak);
    meter.Add(std::span<const audio::Frame>(*jingle));
    std::printf("%.2f %.2f\n", audio::LoudestMoment(*jingle, audio::kJingleRate),
                Decibels(meter.TruePeak()));
    return true;
}

} // namespace

/// Tells how loud MP3 files are and how the game plays them. With `--samples` fails if one does not
/// fit among the sample songs. With `--jingle` measures a short sound as the build makes it.
int main(int argc, char** argv) {
    std::span<char*> songs = std::span(argv, static_cast<std::size_t>(argc)).subspan(1);
    const std::string_view option = songs.empty() ? "" : songs.front();
    const bool samples = option == "--samples";
    if (option == "--jingle" && songs.size() == 2)
        return PrintJingle(songs[1]) ? 0 : 1;
    if (samples)
        songs = songs.subspan(1);
    if (songs.empty()) {
        std::fputs("Usage: songrush_loudness [--samples] song.mp3... | --jingle sound.pcm\n",
                   stderr);
        return 2;
    }
    std::puts("  length     LUFS    dBTP    gain   played:LUFS dBTP");
    bool fine = true;
    for (const char* song : songs)
        fine = Print(song, samples) && fine;
    return fine ? 0 : 1;
}
