// Keys, find box, menu and drops of the playlist editor.

#include "editor/c_Editor.h"

#include "library/AnyList.h"
#include "platform/ShowInFolder.h"
#include "toolkit/PopUpMenu.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QShortcut>
#include <QUrl>
#include <algorithm>

using namespace toolkit;

namespace fs = std::filesystem;

namespace {

/// The paths byte for byte, even if they are not valid text.
std::vector<fs::path> LocalFiles(const QDropEvent& event) {
    std::vector<fs::path> files;
    for (const QUrl& url : event.mimeData()->urls())
        if (url.isLocalFile())
            files.emplace_back(
                QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1())
                    .toStdString());
    return files;
}

} // namespace

void c_Editor::AddKeys() {
    const auto add = [this](QKeyCombination keys, auto act) {
        auto* shortcut = new QShortcut(keys, &mForm);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    add(Qt::CTRL | Qt::Key_O, &c_Editor::bLoad_Clicked);
    add(Qt::CTRL | Qt::Key_S, [this] { SaveList(false); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_S, &c_Editor::bSave_Clicked);
    add(Qt::CTRL | Qt::Key_Z, &c_Editor::Undo);
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_Z, &c_Editor::Redo);
    add(Qt::CTRL | Qt::Key_Y, &c_Editor::Redo);
    add(Qt::Key_F2, &c_Editor::bEdit_Clicked);
    add(Qt::Key_F3, [this] { FindNext(1); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { FindNext(-1); });
    add(Qt::CTRL | Qt::Key_F, [this] {
        mForm.tFind->setFocus();
        mForm.tFind->selectAll();
    });
}

/// Stops what is being read, or leaves the box that finds songs; false if there is neither.
bool c_Editor::Escape() {
    if (mFilling.Busy()) {
        StopReading();
        return true;
    }
    if (!mForm.tFind->hasFocus())
        return false;
    mForm.tFind->clear();
    mForm.pList->setFocus();
    return true;
}

/// Keys that mean something else here than to the list, the box or the form; false for others.
bool c_Editor::Key(const QObject* where, const QKeyEvent& event) {
    const int key = event.key();
    const bool shift = event.modifiers().testFlag(Qt::ShiftModifier);
    if (where == &mForm)
        return key == Qt::Key_Escape && Escape();
    if (where == mForm.tFind) {
        const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
        if (enter)
            FindNext(shift ? -1 : 1);
        return enter;
    }
    const bool plays = key == Qt::Key_Space && event.modifiers() == Qt::NoModifier;
    if (plays && !event.isAutoRepeat())
        bPlay_Clicked();
    return plays;
}

bool c_Editor::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        return Key(watched, *static_cast<QKeyEvent*>(event));
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        auto& drop = *static_cast<QDropEvent*>(event);
        if (watched != &mForm || !mForm.isEnabled() || !drop.mimeData()->hasUrls())
            return false;
        drop.setDropAction(Qt::CopyAction);
        drop.accept();
        if (event->type() == QEvent::Drop)
            Drop(drop);
        return true;
    }
    default:
        return false;
    }
}

void c_Editor::FindNext(int direction, bool fromHere) {
    const int count = mList.LineCount();
    const int selected = mList.LineSelectedNum();
    const QString text = mForm.tFind->text();
    int line = -1;
    if (count > 0 && !text.isEmpty()) {
        const int from = fromHere || selected < 0 ? std::max(selected, 0) : selected + direction;
        line = mList.FindText(text, (from + count) % count, direction > 0);
    }
    mForm.ShowFound(line >= 0 || text.isEmpty());
    if (line >= 0)
        mList.SelectLine(line);
}

void c_Editor::mList_LineRightClicked(int, QPoint place) {
    const auto named = [](const char* what, const QString& step) {
        return QLatin1String(what) + (step.isEmpty() ? QString() : u' ' + step);
    };
    const auto call = [this](void (c_Editor::*act)()) { return [this, act] { (this->*act)(); }; };
    const QPoint at = FromLogical(QRect(place, QSize(1, 1))).topLeft();
    PopUpMenu(
        *mForm.pList, mForm.mapToGlobal(at),
        {{QStringLiteral("Play"), QStringLiteral("Space"), call(&c_Editor::bPlay_Clicked)},
         {QStringLiteral("Edit"), QStringLiteral("F2"), call(&c_Editor::bEdit_Clicked)},
         {QStringLiteral("Remove"), QStringLiteral("Del"), call(&c_Editor::bRemove_Clicked)},
         {QStringLiteral("Show in folder"), {}, [this] { platform::ShowInFolder(SelectedSong()); }},
         {QStringLiteral("Find missing"),
          {},
          call(&c_Editor::FindMissing),
          !mSongs.Missing().empty()},
         {},
         {named("Undo", mSongs.UndoName()), QStringLiteral("Ctrl+Z"), call(&c_Editor::Undo),
          !mSongs.UndoName().isEmpty()},
         {named("Redo", mSongs.RedoName()), QStringLiteral("Ctrl+Shift+Z"), call(&c_Editor::Redo),
          !mSongs.RedoName().isEmpty()}});
}

void c_Editor::Drop(const QDropEvent& event) {
    std::vector<fs::path> files = LocalFiles(event);
    if (files.size() == 1 && mList.LineCount() == 0 && library::HasListName(files.front().native()))
        Load(files.front());
    else if (!files.empty())
        ReadInto(QStringLiteral("files"), editor::ReadDropped(std::move(files)));
}
