#pragma once

#include <vector>

namespace toolkit {

/// How the columns of a list share its width. A border has the number of the column before it.
class ListColumns {
public:
    ListColumns() = default;
    /// The first column is a third wider than each of the others.
    explicit ListColumns(int count);

    bool operator==(const ListColumns&) const = default;

    int Count() const { return static_cast<int>(mShares.size()); }

    /// Where the columns begin in a list of `width` logical pixels, and the end of the last.
    std::vector<int> Edges(int width) const;

    /// Moves a border to `x`, as far as every column stays wide enough to be seen; columns that are
    /// in the way become narrower.
    void MoveBorder(int border, int x, int width);

    std::vector<int> Widths(int width) const;
    /// Does nothing unless there is one width for each column and none is too narrow.
    void SetWidths(const std::vector<int>& widths);

private:
    std::vector<int> mShares;
};

} // namespace toolkit
