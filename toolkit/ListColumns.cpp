#include "toolkit/ListColumns.h"

#include <algorithm>
#include <numeric>

namespace toolkit {

namespace {

constexpr int kNarrowest = 40; // logical pixels

std::vector<int> Differences(const std::vector<int>& edges) {
    std::vector<int> widths(edges.size());
    std::adjacent_difference(edges.begin(), edges.end(), widths.begin());
    widths.erase(widths.begin());
    return widths;
}

} // namespace

ListColumns::ListColumns(int count) : mShares(static_cast<std::size_t>(count), 3) {
    mShares.front() = 4;
}

std::vector<int> ListColumns::Edges(int width) const {
    const int all = std::max(std::accumulate(mShares.begin(), mShares.end(), 0), 1);
    std::vector<int> edges = {0};
    int before = 0;
    for (const int share : mShares)
        edges.push_back(width * (before += share) / all);
    return edges;
}

void ListColumns::MoveBorder(int border, int x, int width) {
    const int count = Count();
    const int least = std::min(kNarrowest, width / count);
    std::vector<int> edges = Edges(width);
    const auto edge = [&edges](int i) -> int& { return edges[static_cast<std::size_t>(i)]; };
    const int moved = border + 1;
    edge(moved) = std::clamp(x, moved * least, width - (count - moved) * least);
    for (int i = border; i > 0; --i)
        edge(i) = std::min(edge(i), edge(i + 1) - least);
    for (int i = moved + 1; i < count; ++i)
        edge(i) = std::max(edge(i), edge(i - 1) + least);
    mShares = Differences(edges);
}

std::vector<int> ListColumns::Widths(int width) const { return Differences(Edges(width)); }

void ListColumns::SetWidths(const std::vector<int>& widths) {
    const auto wide = [](int width) { return width >= kNarrowest && width <= 10'000; };
    if (widths.size() == mShares.size() && std::ranges::all_of(widths, wide))
        mShares = widths;
}

} // namespace toolkit
