#include "game/LikeTitles.h"

#include <QRegularExpression>

namespace game {

namespace {

QString Signs(const QString& text) {
    QString signs = text.normalized(QString::NormalizationForm_KC).toCaseFolded();
    signs.removeIf([](QChar c) { return c.isSpace() || c.isPunct() || c.isSymbol(); });
    return signs;
}

} // namespace

QString ComparedTitle(const QString& title) {
    static const QRegularExpression kAddition(
        QStringLiteral("\\([^()]*\\)|\\[[^\\[\\]]*\\]|\\{[^{}]*\\}"));
    QString without = title;
    for (QString before; before != without;) { // brackets may be nested
        before = without;
        without.remove(kAddition);
    }
    for (const QString& signs : {Signs(without), Signs(title)}) {
        if (!signs.isEmpty())
            return signs;
    }
    return title;
}

} // namespace game
