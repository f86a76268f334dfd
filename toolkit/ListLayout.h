#pragma once

#include <QPointF>
#include <QRect>
#include <QSize>
#include <vector>

namespace toolkit {

/// Where the parts of a list lie in its box, in logical pixels.
class ListLayout {
public:
    enum class Part { None, Header, SubHeader, Lines, Scroller };

    /// A part, and its column if it has columns.
    struct Spot {
        Part part = Part::None;
        int column = -1;
        bool operator==(const Spot&) const = default;
    };

    /// `hasSubHeader`: whether there is a strip under the header.
    ListLayout(const QSize& box, double textHeight, int columns, bool hasSubHeader,
               int scrollerWidth);

    int LineHeight() const { return mLineHeight; }
    QRect Lines() const { return mLines; }
    QRect Scroller() const { return mScroller; }
    QRect HeaderCell(int column) const { return Cell(column, mHeader); }
    QRect SubHeaderCell(int column) const { return Cell(column, mSubHeader); }
    /// A line's whole cell, even if it is out of sight, in lines scrolled by `top`.
    QRect LineCell(int line, int column, int top) const;

    Spot At(const QPointF& point) const;
    /// The line at `y`, perhaps one after the last, in lines scrolled by `top`.
    int LineAt(double y, int top) const;

    /// Space to the left and right of a text in its cell.
    static constexpr int kMargin = 7;

private:
    QRect Cell(int column, const QRect& row) const;

    int mLineHeight;
    QRect mHeader;
    QRect mSubHeader;
    QRect mLines;
    QRect mScroller;
    std::vector<int> mEdges; // where the columns begin, and the end of the last
};

} // namespace toolkit
