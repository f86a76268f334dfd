#pragma once

#include <vector>

namespace editor {

/// The marks of a list's lines, which are set by selecting with the range or the add key held.
/// Lines count from 0.
class Marks {
public:
    /// How a line came to be selected.
    struct Keys {
        bool range;
        bool add;
        bool byKeyboard;
    };

    bool Has(int line) const { return mMarks[static_cast<std::size_t>(line)]; }

    /// The list has this many lines now; new ones come at its end, unmarked.
    void SetLineCount(int lines) { mMarks.resize(static_cast<std::size_t>(lines)); }

    /// Begins anew with a list of `lines` lines; `selected` is its selected line, -1 for none.
    void Begin(int lines, int selected);

    void MarkAll() { mMarks.assign(mMarks.size(), true); }

    /// Follows the selection to `line`; true when the list must be drawn anew.
    bool Select(int line, Keys keys);

    /// Follows the lines when they were sorted: line i was `before[i]`.
    void Reorder(const std::vector<int>& before);

private:
    void MarkRange(int from, int to);
    bool Clear();

    std::vector<bool> mMarks;
    int mLastSel = -1;    // the line selected before the current one
    int mRangeStart = -1; // where a range that is drawn out by keys began
};

} // namespace editor
