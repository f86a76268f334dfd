#include "game/HighScoreTable.h"

#include "platform/LeadingNumber.h"
#include "platform/Text.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace game {

namespace {

constexpr QByteArrayView kLineEnd("\r\n");

/// Takes the next line off `text`. It ends with CR LF or, if another program wrote the file, with
/// LF; the last one needs no end.
std::optional<QByteArrayView> TakeLine(QByteArrayView& text) {
    if (text.isEmpty())
        return std::nullopt;
    const qsizetype end = text.indexOf('\n');
    const QByteArrayView line = end < 0 ? text : text.first(end);
    text = end < 0 ? QByteArrayView() : text.sliced(end + 1);
    return line.endsWith('\r') ? line.chopped(1) : line;
}

QString Shown(const QByteArray& bytes) {
    return platform::ShownText(
        std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

int CheckValue(const QByteArray& name, const QByteArray& score) { return Checksum(name + score); }

} // namespace

int Checksum(QByteArrayView bytes) {
    int sum = 0;
    for (const char c : bytes) {
        sum += static_cast<unsigned char>(c);
        if (sum > 100000)
            sum -= 50000;
    }
    return sum;
}

QString PlayerName(const QString& typed) {
    const QString name = typed.trimmed();
    return name.isEmpty() ? QStringLiteral("Blank") : name;
}

QString HighScoreTable::Name(int place) const { return Shown(At(place).name); }

QString HighScoreTable::Score(int place) const { return Shown(At(place).score); }

HighScoreTable::ReadResult HighScoreTable::Parse(QByteArrayView file) {
    std::array<Entry, kPlaces> read;
    for (Entry& entry : read) {
        const auto name = TakeLine(file);
        const auto score = TakeLine(file);
        const auto check = TakeLine(file);
        if (!check)
            return ReadResult::Unreadable;
        entry = {name->toByteArray(), score->toByteArray(), false};
        if (platform::LeadingNumber(*check) != CheckValue(entry.name, entry.score)) {
            mEntries = {};
            return ReadResult::Tampered;
        }
    }
    mEntries = std::move(read);
    return ReadResult::Good;
}

QByteArray HighScoreTable::Serialise() const {
    QByteArray file;
    const auto addLine = [&file](QByteArrayView line) { file.append(line).append(kLineEnd); };
    for (const Entry& entry : mEntries) {
        addLine(entry.name);
        addLine(entry.score);
        addLine(QByteArray::number(CheckValue(entry.name, entry.score)));
    }
    return file;
}

std::optional<int> HighScoreTable::PlaceFor(std::int32_t score) const {
    for (int place = 0; place < kPlaces; ++place) {
        if (platform::LeadingNumber(At(place).score) < score)
            return place;
    }
    return std::nullopt;
}

void HighScoreTable::Insert(int place, const QString& name, std::int32_t score) {
    QByteArray line = platform::SystemBytes(name);
    line.replace('\r', ' ').replace('\n', ' '); // either would end the line in the file
    const auto at = mEntries.begin() + place;
    std::shift_right(at, mEntries.end(), 1);
    *at = {line, QByteArray::number(score), true};
}

} // namespace game
