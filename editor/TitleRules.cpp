#include "editor/TitleRules.h"

#include "library/c_ID3.h"
#include "platform/Text.h"

#include <QStringList>
#include <QStringView>
#include <algorithm>
#include <array>

namespace editor {

namespace {

const QString kEnding = QStringLiteral(".mp3");

bool StaysLower(QString word) {
    static constexpr std::array<QStringView, 11> kLittleWords = {
        u"is", u"the", u"and", u"a", u"if", u"am", u"of", u"on", u"but", u"nor", u"for"};
    word.remove(u',');
    return std::find(kLittleWords.begin(), kLittleWords.end(), word) != kLittleWords.end();
}

/// The two parts around a separator; nothing if there are more or fewer parts.
std::optional<ArtistAndTitle> SplitInTwo(const QString& name, QChar separator) {
    const QStringList parts = name.split(separator);
    if (parts.size() != 2)
        return std::nullopt;
    return ArtistAndTitle{parts[0], parts[1]};
}

/// `kept` is what can be read of `text`.
Fitting Fit(const QString& text, const QString& kept, int room) {
    const QString wanted = platform::TrimBlanks(text);
    const auto length = static_cast<int>(platform::Windows1252FromText(wanted).size());
    return {kept, platform::TrimBlanks(kept) != platform::TrimBlanks(wanted.left(room)), length,
            room};
}

} // namespace

QString CapitalizeWords(const QString& text) {
    QStringList words = text.toLower().split(u' ');
    for (qsizetype i = 0; i < words.size(); ++i) {
        QString& word = words[i];
        if (!word.isEmpty() && (i == 0 || !StaysLower(word)))
            word.front() = word.front().toUpper();
    }
    return words.join(u' ');
}

QString RemoveJunk(const QString& text) {
    QString kept = QString(text).replace(u'_', u' ');
    kept.removeIf([](QChar c) { return QStringView(u"~<>{}+=/\\?").contains(c); });
    return platform::TrimBlanks(kept);
}

ArtistAndTitle GuessFromName(const QString& name) {
    std::optional<ArtistAndTitle> guess = SplitInTwo(name, u'-');
    if (!guess)
        guess = SplitInTwo(name, u'_');
    if (!guess)
        guess = {QStringLiteral("Unknown"), QString(name).remove(kEnding, Qt::CaseInsensitive)};
    return {RemoveJunk(guess->artist), RemoveJunk(guess->title)};
}

std::optional<QString> Combine(const QString& artist, const QString& title) {
    const QString first = platform::TrimBlanks(artist);
    const QString second = platform::TrimBlanks(title);
    if (first.isEmpty() && second.isEmpty())
        return std::nullopt;
    return first + u'-' + second;
}

QString Fitting::Hint() const {
    const QString count = QStringLiteral("%1 of %2 characters").arg(length).arg(room);
    return Cut() || lost ? count + QStringLiteral("; the tag will have \"%1\"").arg(text) : count;
}

QString TagText(const QString& text) { return platform::TrimBlanks(c_ID3::CleanCrap(text)); }

Fitting FitTitle(const QString& title) {
    c_ID3 tag;
    tag.SetTitle(TagText(title));
    return Fit(title, tag.AsWritten().Title(), 59);
}

Fitting FitArtist(const QString& artist) {
    c_ID3 tag;
    tag.SetArtist(TagText(artist));
    return Fit(artist, tag.AsWritten().Artist(), 30);
}

QString NameCharacters(const QString& text) {
    QString kept = text;
    kept.removeIf([](QChar c) { return c < u' ' || QStringView(u"\\/<>:*|?").contains(c); });
    return kept;
}

QString WithoutEnding(const QString& name) {
    return name.endsWith(kEnding, Qt::CaseInsensitive) ? name.chopped(kEnding.size()) : name;
}

QString WithEnding(const QString& name) {
    return name.endsWith(kEnding, Qt::CaseInsensitive) ? name : name + kEnding;
}

} // namespace editor
