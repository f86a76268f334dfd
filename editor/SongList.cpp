#include "editor/SongList.h"

#include "editor/PartOrder.h"
#include "platform/Text.h"
#include "toolkit/c_PicList.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace editor {

namespace fs = std::filesystem;

namespace {

QString Songs(std::size_t count) {
    return count == 1 ? QStringLiteral("1 song") : QStringLiteral("%1 songs").arg(count);
}

} // namespace

/// A step that added lines at the list's end.
struct SongList::Added {
    int first;
    int count;
    Taken taken; // while it is undone
};

SongList::SongList(c_PicList& list, Change change) : mList(list), mChange(std::move(change)) {}

void SongList::Begin(const fs::path& file, bool foreign) {
    mList.ClearLines();
    mHistory.Clear();
    mNewer.clear();
    mMissing.clear();
    mSaved = {};
    mPrint.reset();
    mFile = file;
    mForeign = foreign;
    EndAdding();
}

void SongList::Append(const std::vector<Line>& lines) {
    for (const Line& line : lines) {
        mList.AddItem(line.text, line.key);
        NoteLook(line);
        if (mPrint)
            mPrint->Add(line.key);
    }
}

/// All lines of a song look alike.
void SongList::NoteLook(const Line& line) {
    for (const auto& [look, keys] : {std::pair(line.newer, &mNewer), {line.missing, &mMissing}})
        if (look)
            keys->insert(line.key);
        else
            keys->remove(line.key);
}

void SongList::AddSaved(const std::vector<Line>& lines) {
    Append(lines);
    for (const Line& line : lines)
        mSaved.Add(line.key);
}

void SongList::Add(const std::vector<Line>& lines) {
    const int count = static_cast<int>(lines.size());
    const int first = mList.LineCount();
    Append(lines);
    if (!mAdded || mHistory.Done() != mAddedStep || mAdded->first + mAdded->count != first) {
        mAdded = std::make_shared<Added>(Added{first, 0, {}});
        const auto undo = [this, added = mAdded] {
            std::vector<int> places(static_cast<std::size_t>(added->count));
            std::iota(places.begin(), places.end(), added->first);
            added->taken = TakeOut(places);
            return true;
        };
        const auto redo = [this, added = mAdded] {
            PutBack(added->taken);
            return true;
        };
        mHistory.Add({QString(), undo, redo});
        mAddedStep = mHistory.Done();
    }
    mAdded->count += count;
    mHistory.RenameLast(QStringLiteral("Add ") + Songs(static_cast<std::size_t>(mAdded->count)));
}

void SongList::Remove(const std::vector<int>& lines) {
    if (lines.empty())
        return;
    const auto taken = std::make_shared<const Taken>(TakeOut(lines));
    mHistory.Add({QStringLiteral("Remove ") + Songs(lines.size()),
                  [this, taken] {
                      PutBack(*taken);
                      return true;
                  },
                  [this, taken] {
                      TakeOut(taken->places);
                      return true;
                  }});
}

void SongList::Reordered(const QString& name, const std::vector<int>& before) {
    if (std::is_sorted(before.begin(), before.end()))
        return;
    mPrint.reset();
    const auto order = std::make_shared<const PartOrder>(before);
    const auto reorder = [this, order](bool back) {
        mPrint.reset();
        mList.Reorder(order->Of(mList.LineCount(), back));
        return true;
    };
    mHistory.Add({name, [reorder] { return reorder(true); }, [reorder] { return reorder(false); }});
}

void SongList::Changed(const std::vector<SongChange>& changes) {
    ShowChanges(changes);
    const auto done = std::make_shared<std::vector<SongChange>>(changes);
    std::erase_if(*done, [](const SongChange& change) { return !change.Any(); });
    if (done->empty())
        return;
    const QString what = done->size() == 1
                             ? platform::ShownText(done->front().before.path.filename())
                             : Songs(done->size());
    const auto back = [this, done] { return ChangeBack(*done); };
    mHistory.Add({QStringLiteral("Edit ") + what, back, back});
}

/// Undoes changes on disk, and replaces them by those that this made. False if it made none.
bool SongList::ChangeBack(std::vector<SongChange>& changes) {
    // The last one first: songs may have passed on a name.
    std::ranges::reverse(changes);
    std::vector<SongWish> wishes;
    wishes.reserve(changes.size());
    for (const SongChange& change : changes)
        wishes.push_back(
            {change.after.path, [before = change.before](SongFacts& facts) { facts = before; }});
    const std::vector<SongChange> made = mChange(wishes);
    ShowChanges(made);
    mProblems = ProblemsOf(made);
    std::ranges::copy(made, changes.begin());
    return std::ranges::any_of(made, &SongChange::Any);
}

void SongList::ShowChanges(const std::vector<SongChange>& changes) {
    QHash<QString, Line> now;
    for (const SongChange& change : changes)
        now.insert(platform::KeyFromPath(change.before.path), LineOf(change.after));
    ShowSongs(now);
}

/// Replaces all lines of songs by new ones, given by the old keys. Returns the old lines.
SongList::Taken SongList::ShowSongs(const QHash<QString, Line>& now) {
    Taken before;
    for (int line = 0; line < mList.LineCount(); ++line) {
        const auto song = now.find(mList.LineKey(line));
        if (song == now.end())
            continue;
        before.places.push_back(line);
        before.lines.push_back(LineAt(line));
        SetLine(line, *song);
    }
    return before;
}

void SongList::Replace(const QString& name, const std::vector<std::pair<QString, Line>>& songs) {
    if (songs.empty())
        return;
    QHash<QString, Line> now;
    for (const auto& [key, line] : songs)
        now.insert(key, line);
    const auto before = std::make_shared<const Taken>(ShowSongs(now));
    const auto undo = [this, before] {
        for (std::size_t i = 0; i < before->places.size(); ++i)
            SetLine(before->places[i], before->lines[i]);
        return true;
    };
    const auto redo = [this, now] {
        ShowSongs(now);
        return true;
    };
    mHistory.Add({name + u' ' + Songs(songs.size()), undo, redo});
}

void SongList::SetLine(int line, const Line& now) {
    mList.SetLineText(line, now.text);
    mList.SetLineKey(line, now.key);
    mPrint.reset();
    NoteLook(now);
}

QString SongList::Undo() {
    mProblems.clear();
    mHistory.Undo();
    return mProblems;
}

QString SongList::Redo() {
    mProblems.clear();
    mHistory.Redo();
    return mProblems;
}

std::vector<QString> SongList::Missing() const {
    QSet<QString> missing;
    for (int line = 0; !mMissing.isEmpty() && line < mList.LineCount(); ++line)
        if (IsMissing(mList.LineKey(line)))
            missing.insert(mList.LineKey(line));
    return {missing.begin(), missing.end()};
}

QString SongList::Name() const {
    return mFile.empty() ? QStringLiteral("New list") : platform::ShownText(mFile.stem());
}

std::vector<QString> SongList::Keys() const {
    std::vector<QString> keys(static_cast<std::size_t>(mList.LineCount()));
    for (std::size_t line = 0; line < keys.size(); ++line)
        keys[line] = mList.LineKey(static_cast<int>(line));
    return keys;
}

KeyPrint SongList::Print() const {
    if (!mPrint) {
        mPrint.emplace();
        for (int line = 0; line < mList.LineCount(); ++line)
            mPrint->Add(mList.LineKey(line));
    }
    return *mPrint;
}

bool SongList::Unsaved() const { return mList.LineCount() > 0 && Print() != mSaved; }

void SongList::Saved(const fs::path& file, const KeyPrint& keys) {
    mFile = file;
    mForeign = false;
    mSaved = keys;
}

Line SongList::LineAt(int line) const {
    const QString key = mList.LineKey(line);
    return {mList.LineText(line), key, IsNewer(key), IsMissing(key)};
}

SongList::Taken SongList::TakeOut(const std::vector<int>& places) {
    Taken taken{places, {}};
    taken.lines.reserve(places.size());
    for (const int place : places)
        taken.lines.push_back(LineAt(place));
    mPrint.reset();
    mList.RemoveLines(places);
    constexpr std::size_t kFew = 100; // after which the list need not scroll
    if (places.size() > kFew)
        mList.SelectLine(mList.LineSelectedNum());
    return taken;
}

void SongList::PutBack(const Taken& taken) {
    mPrint.reset();
    int back = mList.LineCount(); // they come back at the end, and from there to their places
    for (const Line& line : taken.lines)
        mList.AddItem(line.text, line.key);
    std::vector<int> order(static_cast<std::size_t>(mList.LineCount()), -1);
    for (const int place : taken.places)
        order[static_cast<std::size_t>(place)] = back++;
    for (int old = 0; int& line : order)
        line = line < 0 ? old++ : line;
    mList.Reorder(order);
    mList.SelectLine(taken.places.front());
}

} // namespace editor
