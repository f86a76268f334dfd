#include "tools/songs/ScoreReader.h"

#include "tools/songs/Figure.h"
#include "tools/songs/ScoreError.h"
#include "tools/songs/SectionReader.h"
#include "tools/songs/Words.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>

namespace songs {

namespace {

int ReadNumber(std::string_view text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end)
        throw ScoreError("\"" + std::string(text) + "\" is no number");
    return number;
}

Voice ReadVoice(std::string_view name) {
    const Voice voice = FindVoice(name);
    if (voice == nullptr)
        throw ScoreError("unknown voice \"" + std::string(name) + "\"");
    return voice;
}

double ReadTempo(std::string_view text) {
    const int tempo = ReadNumber(text);
    if (tempo < 20 || tempo > 400)
        throw ScoreError("a tempo is from 20 to 400 quarter notes a minute");
    return tempo;
}

int ReadTransposition(std::string_view text) {
    const int semitones = ReadNumber(text);
    if (semitones < 0 || semitones > 24)
        throw ScoreError("a transposition is of 24 semitones at most");
    return semitones;
}

int ReadMeter(std::string_view text) {
    const std::vector<std::string_view> numbers = Parts(text, '/');
    if (numbers.size() != 2)
        throw ScoreError("a meter is written like 3/4");
    const int count = ReadNumber(numbers[0]);
    const int unit = ReadNumber(numbers[1]);
    if (count < 1 || count > 16 || (unit != 2 && unit != 4 && unit != 8))
        throw ScoreError("no such meter: " + std::string(text));
    return count * 4 * kTicksPerQuarter / unit;
}

class Reader {
public:
    Score Read(std::istream& in, const std::string& name);

private:
    void ReadLine(std::string_view line);
    void ReadHeader(std::string_view line);
    void BeginSection(std::string_view line);
    void EndSection();
    std::string_view Header(const std::string& name);
    void TakeHeaders();
    Accompaniment ReadAccompaniment(const std::string& name);
    void ReadOrder();
    void ReadTurn(std::string_view word, Turn& turn);

    struct HeaderLine {
        std::string value;
        int line = 0;
    };

    Score mScore;
    std::map<std::string, HeaderLine, std::less<>> mHeaders;
    std::optional<SectionReader> mSection;
    int mLine = 0;
};

Score Reader::Read(std::istream& in, const std::string& name) {
    try {
        for (std::string line; std::getline(in, line);) {
            ++mLine;
            const std::string_view text = Trimmed(line);
            if (!text.empty() && !text.starts_with('#'))
                ReadLine(text);
        }
        EndSection();
        TakeHeaders();
    } catch (const ScoreError& error) {
        throw ScoreError(name + ":" + std::to_string(mLine) + ": " + error.what());
    }
    return std::move(mScore);
}

void Reader::ReadLine(std::string_view line) {
    if (line.starts_with('['))
        BeginSection(line);
    else if (!mSection)
        ReadHeader(line);
    else if (line.starts_with(':'))
        mSection->ReadChords(line.substr(1));
    else
        mSection->ReadMelody(line);
}

void Reader::ReadHeader(std::string_view line) {
    constexpr std::string_view kNames[] = {"title", "artist", "year", "genre",  "meter",
                                           "tempo", "lead",   "bass", "chords", "order"};
    const std::size_t colon = std::min(line.find(':'), line.size());
    const std::string name(Trimmed(line.substr(0, colon)));
    if (colon == line.size() || std::ranges::find(kNames, name) == std::end(kNames))
        throw ScoreError("unknown header line \"" + std::string(line) + "\"");
    const std::string value(Trimmed(line.substr(colon + 1)));
    if (!mHeaders.emplace(name, HeaderLine{value, mLine}).second)
        throw ScoreError("a second " + name + " line");
    if (name == "meter")
        mScore.barTicks = ReadMeter(value);
}

void Reader::BeginSection(std::string_view line) {
    EndSection();
    if (!line.ends_with(']') || line.size() < 3)
        throw ScoreError("a section is headed like [A]");
    const std::string_view name = line.substr(1, line.size() - 2);
    if (std::ranges::find(mScore.sections, name, &Section::name) != mScore.sections.end())
        throw ScoreError("a second section " + std::string(name));
    if (mScore.barTicks == 0)
        throw ScoreError("there is no meter line before the first section");
    mSection.emplace(name, mScore.barTicks);
}

void Reader::EndSection() {
    if (mSection)
        mScore.sections.push_back(mSection->Take());
}

/// The value of a header line. What is found wrong from here on is wrong in that line.
std::string_view Reader::Header(const std::string& name) {
    const auto header = mHeaders.find(name);
    if (header == mHeaders.end())
        throw ScoreError("there is no " + name + " line");
    mLine = header->second.line;
    return header->second.value;
}

void Reader::TakeHeaders() {
    mScore.title = Header("title");
    mScore.artist = Header("artist");
    mScore.genre = Header("genre");
    if (mHeaders.contains("year"))
        mScore.year = Header("year");
    mScore.chords = ReadAccompaniment("chords");
    mScore.bass = ReadAccompaniment("bass");
    ReadOrder();
}

Accompaniment Reader::ReadAccompaniment(const std::string& name) {
    const std::vector<std::string_view> words = Words(Header(name));
    if (words.size() != 2)
        throw ScoreError("a voice and a figure are wanted");
    CheckFigure(words[1], mScore.barTicks);
    return {ReadVoice(words[0]), std::string(words[1])};
}

void Reader::ReadOrder() {
    Turn turn;
    turn.quartersPerMinute = ReadTempo(Header("tempo"));
    turn.lead = ReadVoice(Header("lead"));
    for (const std::string_view word : Words(Header("order"))) {
        ReadTurn(word, turn);
        mScore.turns.push_back(turn);
    }
    if (mScore.turns.empty())
        throw ScoreError("no section is played");
}

/// A turn is written "A", "A=flute", "A@120", "A+2" or several of these; they hold from there on.
void Reader::ReadTurn(std::string_view word, Turn& turn) {
    constexpr std::string_view kMarks = "=@+-";
    std::size_t end = std::min(word.find_first_of(kMarks), word.size());
    const std::string_view name = word.substr(0, end);
    const auto section = std::ranges::find(mScore.sections, name, &Section::name);
    if (section == mScore.sections.end())
        throw ScoreError("no section is called \"" + std::string(name) + "\"");
    turn.section = static_cast<std::size_t>(section - mScore.sections.begin());

    for (word.remove_prefix(end); !word.empty(); word.remove_prefix(end)) {
        end = std::min(word.find_first_of(kMarks, 1), word.size());
        const std::string_view value = word.substr(1, end - 1);
        if (word.front() == '=')
            turn.lead = ReadVoice(value);
        else if (word.front() == '@')
            turn.quartersPerMinute = ReadTempo(value);
        else
            turn.transpose = (word.front() == '+' ? 1 : -1) * ReadTransposition(value);
    }
}

} // namespace

Score ReadScore(std::istream& in, const std::string& name) { return Reader().Read(in, name); }

} // namespace songs
