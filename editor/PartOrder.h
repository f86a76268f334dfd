#pragma once

#include <numeric>
#include <vector>

namespace editor {

/// A new order of lines, in which line i was line `before[i]`. Stores only the part that changes.
class PartOrder {
public:
    explicit PartOrder(const std::vector<int>& before) {
        int end = static_cast<int>(before.size());
        const auto stays = [&before](int line) {
            return before[static_cast<std::size_t>(line)] == line;
        };
        while (mFirst < end && stays(mFirst))
            ++mFirst;
        while (end > mFirst && stays(end - 1))
            --end;
        mBefore.assign(before.begin() + mFirst, before.begin() + end);
    }

    /// The order for a list of `lines` lines, which may have grown; with `back` the one that undoes
    /// it.
    std::vector<int> Of(int lines, bool back) const {
        std::vector<int> order(static_cast<std::size_t>(lines));
        std::iota(order.begin(), order.end(), 0);
        for (int line = mFirst; const int before : mBefore) {
            order[static_cast<std::size_t>(back ? before : line)] = back ? line : before;
            ++line;
        }
        return order;
    }

private:
    int mFirst = 0;
    std::vector<int> mBefore;
};

} // namespace editor
