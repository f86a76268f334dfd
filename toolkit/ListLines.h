#pragma once

#include "toolkit/PackedText.h"

#include <cstdint>
#include <vector>

namespace toolkit {

/// One of the "\"-separated columns of a line's text, ready to be shown; empty if there is none.
QString ShownColumn(const QString& text, int column);

/// Whether the text is displayed exactly as it is stored.
bool ShownAsItIs(const QString& text);

/// The lines of a list, each a text and a key. Line numbers must exist.
class ListLines {
public:
    int Count() const { return static_cast<int>(mOrder.size()); }
    void Add(const QString& text, const QString& key);
    void Clear();
    void Remove(const std::vector<int>& lines); ///< in ascending order

    /// Puts line `order[n]` at n.
    void Reorder(const std::vector<int>& order);

    QString Text(int line) const { return mPool[Place(line)].text.Unpacked(); }
    void SetText(int line, const QString& text) { mPool[Place(line)].text = PackedText(text); }
    std::vector<PackedText> Texts() const; ///< of all lines
    QString Key(int line) const { return mPool[Place(line)].key.Unpacked(); }
    void SetKey(int line, const QString& key) { mPool[Place(line)].key = PackedText(key); }

private:
    struct Line {
        PackedText text;
        PackedText key;
    };

    std::uint32_t Place(int line) const { return mOrder[static_cast<std::size_t>(line)]; }

    // Lines are stored apart from their order, so that removing one of very many only moves small
    // numbers.
    std::vector<Line> mPool;
    std::vector<std::uint32_t> mOrder;
    std::vector<std::uint32_t> mFree;
};

} // namespace toolkit
