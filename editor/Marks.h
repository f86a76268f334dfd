#pragma once

#include <vector>

namespace editor {

/// The marks of a list's lines, which are set by selecting lines with the range key held, and set
/// or taken away with the add key. Lines are numbered from 0. While there are marks, the selected
/// line is one of the marked ones.
class Marks {
public:
    /// How a line came to be selected.
    struct Keys {
        bool range;
        bool add;
        bool byKeyboard;
    };

    /// A line that was not noted yet is unmarked.
    bool Has(int line) const {
        const auto place = static_cast<std::size_t>(line);
        return place < mMarks.size() && mMarks[place];
    }

    /// Notes how many lines the list has now; new ones are at its end and unmarked.
    void SetLineCount(int lines) { mMarks.resize(static_cast<std::size_t>(lines)); }

    /// Starts anew with a list of `lines` lines; `selected` is its selected line, -1 for none.
    void Begin(int lines, int selected);

    void MarkAll() { mMarks.assign(mMarks.size(), true); }

    /// Follows the selection to `line`. Returns the line that is to be selected: another one if
    /// that lost its mark.
    int Select(int line, Keys keys);

    /// Follows the lines when they were sorted: line i was `before[i]`.
    void Reorder(const std::vector<int>& before);

private:
    void MarkRange(int from, int to);
    void Toggle(int line);
    int NearestMarked(int line) const;

    std::vector<bool> mMarks;
    int mLastSel = -1;    // the line selected so far
    int mRangeStart = -1; // where a range that is extended with the keyboard began
};

} // namespace editor
