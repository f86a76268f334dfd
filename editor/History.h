#pragma once

#include <QString>
#include <deque>
#include <functional>

namespace editor {

/// The steps that the player can undo and redo.
class History {
public:
    struct Step {
        QString name; ///< in words: "Remove 3 songs"
        /// Both return false if it could not be done; the step is then forgotten. They may let
        /// events run: nothing is undone or redone meanwhile.
        std::function<bool()> undo;
        std::function<bool()> redo;
    };

    /// Notes a step that was taken. Undone steps are forgotten, and so are the oldest of very many.
    void Add(Step step);

    /// Gives the last step another name, after more was added to it.
    void RenameLast(const QString& name) { mSteps.back().name = name; }

    /// The names of the steps that come next; empty if there are none.
    QString UndoName() const { return mDone == 0 ? QString() : mSteps[mDone - 1].name; }
    QString RedoName() const { return mDone == mSteps.size() ? QString() : mSteps[mDone].name; }

    void Undo();
    void Redo();
    void Clear();

    /// How many steps were taken and not undone.
    std::size_t Done() const { return mDone; }

private:
    bool Take(const std::function<bool()>& step, std::size_t place);

    std::deque<Step> mSteps;
    std::size_t mDone = 0; // how many of them; the others are undone
    bool mWorking = false;
};

} // namespace editor
