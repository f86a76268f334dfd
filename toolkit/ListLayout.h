#pragma once

#include "toolkit/ListColumns.h"

#include <QPointF>
#include <QRect>
#include <QSize>
#include <vector>

namespace toolkit {

/// Where the parts of a list lie in its box, in logical pixels.
class ListLayout {
public:
    enum class Part { None, Header, Border, SubHeader, Lines, Scroller };

    /// A part, and the column if it has columns. A border is the end of a column in the header.
    struct Spot {
        Part part = Part::None;
        int column = -1;
        bool operator==(const Spot&) const = default;
    };

    /// `hasSubHeader`: whether there is a strip under the header.
    ListLayout(const QSize& box, double textHeight, const ListColumns& columns, bool hasSubHeader,
               int scrollerWidth);

    int LineHeight() const { return mLineHeight; }
    QRect Lines() const { return mLines; }
    QRect Scroller() const { return mScroller; }
    QRect HeaderCell(int column) const { return Cell(column, mHeader); }
    int BorderAt(int column) const { return mEdges[static_cast<std::size_t>(column) + 1]; }
    QRect SubHeaderCell(int column) const { return Cell(column, mSubHeader); }
    /// A line's whole cell, even if it is out of sight, in lines scrolled by `top`.
    QRect LineCell(int line, int column, int top) const;

    /// Where the top of a line is, or the end of the last one.
    int LineTop(int line, int top) const { return mLines.y() + line * mLineHeight - top; }

    Spot At(const QPointF& point) const;
    /// The line at `y`, perhaps one after the last, in lines scrolled by `top`.
    int LineAt(double y, int top) const;

    /// Space to the left and right of a text in its cell.
    static constexpr int kMargin = 7;

private:
    bool IsBorder(int column) const {
        return column >= 0 && static_cast<std::size_t>(column) + 2 < mEdges.size();
    }
    QRect Cell(int column, const QRect& row) const;

    int mLineHeight;
    QRect mHeader;
    QRect mSubHeader;
    QRect mLines;
    QRect mScroller;
    std::vector<int> mEdges; // where the columns begin, and the end of the last
};

} // namespace toolkit
