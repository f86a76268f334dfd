#pragma once

#include <numeric>
#include <vector>

namespace editor {

/// An order of lines, line i being that of number `before[i]` so far; keeps only the part in which
/// they are others.
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

    /// Of all lines of a list, to which some may have come; the one that takes it `back`, too.
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
