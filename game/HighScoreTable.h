#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <array>
#include <cstdint>
#include <optional>

namespace game {

/// The check value of the high-score files: the sum of the bytes, reduced by 50000 whenever it
/// exceeds 100000.
int Checksum(QByteArrayView bytes);

/// The name to enter for what a player typed: without blanks at the ends, "Blank" if it is empty.
QString PlayerName(const QString& typed);

/// The ten best scores of a game mode. Places are 0-based, 0 the best.
class HighScoreTable {
public:
    static constexpr int kPlaces = 10;

    enum class ReadResult {
        Good,
        Tampered,  ///< a check line does not fit
        Unreadable ///< lines are missing
    };

    /// A table in which every place has "Blank" with "0".
    HighScoreTable() = default;

    /// The name at a place, as text to be shown.
    QString Name(int place) const;

    /// The score at a place, as it stands in the file.
    QString Score(int place) const;

    /// Whether the entry at a place was inserted since the table was made or read.
    bool IsNew(int place) const { return At(place).isNew; }

    /// Takes over the content of a high-score file: ten records of name, score and the checksum of
    /// both, each a line ended by CR LF or LF, in the platform's 8-bit encoding. `Tampered` leaves
    /// the default table, `Unreadable` leaves the table as it was.
    ReadResult Parse(QByteArrayView file);

    /// The content of a high-score file. Names that were read are written byte for byte.
    QByteArray Serialise() const;

    /// The place at which `score` enters the table, if it does: below all equal scores.
    std::optional<int> PlaceFor(std::int32_t score) const;

    /// Puts a new entry at a place; the entries from there on move down and the last drops out.
    void Insert(int place, const QString& name, std::int32_t score);

private:
    struct Entry {
        QByteArray name = QByteArrayLiteral("Blank"); // platform's 8-bit encoding, as is score
        QByteArray score = QByteArrayLiteral("0");
        bool isNew = false;
    };

    const Entry& At(int place) const { return mEntries.at(static_cast<std::size_t>(place)); }

    std::array<Entry, kPlaces> mEntries;
};

} // namespace game
