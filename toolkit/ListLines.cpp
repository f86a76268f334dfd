#include "toolkit/ListLines.h"

#include "platform/Text.h"

#include <algorithm>

namespace toolkit {

namespace {

/// The piece of that number, as it stands.
QString Piece(const QString& text, int number) {
    qsizetype from = 0;
    for (; number > 0; --number) {
        from = text.indexOf(u'\\', from) + 1;
        if (from == 0)
            return QString();
    }
    const qsizetype end = text.indexOf(u'\\', from);
    return text.mid(from, end < 0 ? -1 : end - from);
}

} // namespace

QString ShownColumn(const QString& text, int column) {
    const QString piece = Piece(text, column);
    if (ShownAsItIs(piece))
        return piece;
    QString shown = platform::UnescapeSeparators(piece);
    if (!shown.isValidUtf16())
        shown = platform::ShownText(platform::PathFromText(shown));
    for (QChar& c : shown)
        if (c.category() == QChar::Other_Control)
            c = u' ';
    return shown;
}

bool ShownAsItIs(const QString& text) {
    // No control character, and none that may be an escape or part of a surrogate pair.
    return std::ranges::all_of(text, [](QChar c) {
        return c >= QChar(0xA0) ? c < QChar(0xD800) : c >= QChar(0x20) && c < QChar(0x7F);
    });
}

std::vector<PackedText> ListLines::Texts() const {
    std::vector<PackedText> texts;
    texts.reserve(mOrder.size());
    for (const std::uint32_t place : mOrder)
        texts.push_back(mPool[place].text);
    return texts;
}

void ListLines::Add(const QString& text, const QString& key) {
    if (mFree.empty()) {
        mOrder.push_back(static_cast<std::uint32_t>(mPool.size()));
        mPool.push_back({PackedText(text), PackedText(key)});
        return;
    }
    mOrder.push_back(mFree.back());
    mPool[mFree.back()] = {PackedText(text), PackedText(key)};
    mFree.pop_back();
}

void ListLines::Clear() { *this = ListLines(); }

void ListLines::Remove(const std::vector<int>& lines) {
    for (const int line : lines) {
        mPool[Place(line)] = Line();
        mFree.push_back(Place(line));
    }
    auto kept = mOrder.begin() + lines.front();
    for (auto next = lines.begin(); next != lines.end();) {
        const auto from = mOrder.begin() + *next + 1;
        const auto to = ++next == lines.end() ? mOrder.end() : mOrder.begin() + *next;
        kept = std::move(from, to, kept);
    }
    mOrder.erase(kept, mOrder.end());
}

void ListLines::Reorder(const std::vector<int>& order) {
    std::vector<std::uint32_t> places;
    places.reserve(order.size());
    for (const int line : order)
        places.push_back(Place(line));
    mOrder = std::move(places);
}

} // namespace toolkit
