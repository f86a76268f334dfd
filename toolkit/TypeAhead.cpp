#include "toolkit/TypeAhead.h"

#include "platform/Time.h"

#include <algorithm>

namespace toolkit {

namespace {

constexpr int kPause = 1000; // milliseconds

QString Folded(const QString& text) {
    QString plain;
    for (const QChar c : text.normalized(QString::NormalizationForm_KD))
        if (!c.isMark())
            plain += c;
    return plain.toCaseFolded();
}

/// Folds no more of `text` than it needs to, usually the first letter.
bool BeginsWith(const QString& text, QStringView folded) {
    for (const QChar c : text) {
        for (const QChar part : Folded(c)) {
            if (folded.isEmpty())
                return true;
            if (part != folded.front())
                return false;
            folded = folded.mid(1);
        }
    }
    return folded.isEmpty();
}

int FindFrom(int start, const QString& folded, int count, const std::function<QString(int)>& text) {
    for (int i = 0; i < count; ++i) {
        const int line = (start + i) % count;
        if (BeginsWith(text(line), folded))
            return line;
    }
    return -1;
}

} // namespace

int TypeAhead::Find(const QString& typed, int selected, int count,
                    const std::function<QString(int)>& text) {
    const std::int64_t now = platform::TickCount();
    if (now - mTypedAt > kPause)
        mTyped.clear();
    mTypedAt = now;
    const bool begins = mTyped.isEmpty();
    mTyped += Folded(typed);
    if (mTyped.isEmpty())
        return -1;
    const int found = FindFrom(std::max(selected + begins, 0), mTyped, count, text);
    // Repeating a letter moves from one line to the next.
    if (found < 0 && mTyped.size() > 1 && mTyped.count(mTyped.front()) == mTyped.size())
        return FindFrom(selected + 1, mTyped.left(1), count, text);
    return found;
}

} // namespace toolkit
