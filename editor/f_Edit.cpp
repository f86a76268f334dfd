#include "editor/f_Edit.h"

#include "editor/TitleRules.h"
#include "platform/Aside.h"
#include "platform/Message.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/Drawing.h"
#include "toolkit/ToolTip.h"

#include <QDir>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <memory>
#include <utility>

namespace fs = std::filesystem;
using namespace toolkit;

namespace {

constexpr QSize kSize(600, 330);
constexpr int kMargin = 24;

/// Makes `text` the box's text by a single edit of the part that differs, which can be undone.
void EditText(QLineEdit& box, const QString& text) {
    const QString old = box.text();
    const auto shorter = std::min(old.size(), text.size());
    const auto start = std::mismatch(old.begin(), old.begin() + shorter, text.begin()).first;
    const auto before = static_cast<int>(start - old.begin());
    const auto end =
        std::mismatch(old.rbegin(), old.rbegin() + (shorter - before), text.rbegin()).first;
    const auto after = static_cast<int>(end - old.rbegin());
    box.setSelection(before, static_cast<int>(old.size()) - before - after);
    box.insert(text.mid(before, text.size() - before - after));
}

} // namespace

f_Edit::f_Edit()
    : Form(QStringLiteral("f_Edit"), kSize), tFileName(new QLineEdit(this)),
      tSongTitle(new QLineEdit(this)), tArtist(new QLineEdit(this)), lPath(new QLabel(this)),
      Label1(new QLabel(QStringLiteral("&File Name:"), this)),
      Label2(new QLabel(QStringLiteral("&Song Title:"), this)),
      Label3(new QLabel(QStringLiteral("&Artist:"), this)),
      cmdCombine(new QPushButton(QStringLiteral("Artist - Title to &Name"), this)),
      cmdGet(new QPushButton(QStringLiteral("Name &to Artist - Title"), this)),
      cmdCapital(new QPushButton(QStringLiteral("&Capitalize"), this)),
      cmdRemove(new QPushButton(QStringLiteral("&Remove Junk"), this)),
      cmdApply(new QPushButton(QStringLiteral("A&pply"), this)),
      cmdCancel(new QPushButton(QStringLiteral("Cance&l"), this)) {
    setWindowTitle(QStringLiteral("Mp3 Editor"));
    SetModal();
    Name();
    LayOut();
    DrawPanel(Dc());

    connect(tFileName, &QLineEdit::textChanged, this, &f_Edit::tFileName_Change);
    for (QLineEdit* box : {tFileName, tSongTitle, tArtist})
        connect(box, &QLineEdit::returnPressed, this, &f_Edit::cmdApply_Click);
    connect(cmdCombine, &QPushButton::clicked, this, &f_Edit::cmdCombine_Click);
    connect(cmdGet, &QPushButton::clicked, this, &f_Edit::cmdGet_Click);
    connect(cmdCapital, &QPushButton::clicked, this, &f_Edit::cmdCapital_Click);
    connect(cmdRemove, &QPushButton::clicked, this, &f_Edit::cmdRemove_Click);
    connect(cmdApply, &QPushButton::clicked, this, &f_Edit::cmdApply_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &f_Edit::cmdCancel_Click);
    connect(this, &Form::CloseRequested, this, &f_Edit::cmdCancel_Click);
}

/// Gives the controls their names, and the boxes their captions.
void f_Edit::Name() {
    tFileName->setObjectName(QStringLiteral("tFileName"));
    tSongTitle->setObjectName(QStringLiteral("tSongTitle"));
    tArtist->setObjectName(QStringLiteral("tArtist"));
    lPath->setObjectName(QStringLiteral("lPath"));
    Label1->setObjectName(QStringLiteral("Label1"));
    Label2->setObjectName(QStringLiteral("Label2"));
    Label3->setObjectName(QStringLiteral("Label3"));
    cmdCombine->setObjectName(QStringLiteral("cmdCombine"));
    cmdGet->setObjectName(QStringLiteral("cmdGet"));
    cmdCapital->setObjectName(QStringLiteral("cmdCapital"));
    cmdRemove->setObjectName(QStringLiteral("cmdRemove"));
    cmdApply->setObjectName(QStringLiteral("cmdApply"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    tFileName->setAccessibleName(QStringLiteral("File Name"));
    tSongTitle->setAccessibleName(QStringLiteral("Song Title"));
    tArtist->setAccessibleName(QStringLiteral("Artist"));
    Label1->setBuddy(tFileName);
    Label2->setBuddy(tSongTitle);
    Label3->setBuddy(tArtist);
    for (QPushButton* button : {cmdCombine, cmdGet, cmdCapital, cmdRemove, cmdApply, cmdCancel}) {
        button->setAccessibleName(button->text().remove(u'&'));
        button->setAutoDefault(button != cmdApply); // Enter presses the one that has the focus
    }
    cmdApply->setDefault(true);
}

void f_Edit::LayOut() {
    constexpr int kWidth = kSize.width() - 2 * kMargin;
    Put(*lPath, QRect(kMargin, 20, kWidth, 20));
    lPath->setTextFormat(Qt::PlainText);
    constexpr int kCaption = 80;
    constexpr int kBox = 30;
    int top = 54;
    for (QLabel* caption : {Label1, Label2, Label3}) {
        Put(*caption, QRect(kMargin, top, kCaption, kBox));
        Put(*caption->buddy(), QRect(kMargin + kCaption, top, kWidth - kCaption, kBox));
        top += kBox + 12;
    }
    constexpr int kButton = 34;
    const std::pair<QPushButton*, int> helpers[] = {
        {cmdCombine, 155}, {cmdGet, 155}, {cmdCapital, 94}, {cmdRemove, 124}};
    int left = kMargin;
    for (const auto& [button, width] : helpers) {
        Put(*button, QRect(left, top + 6, width, kButton));
        left += width + 8;
    }
    left = kSize.width() - kMargin;
    for (QPushButton* button : {cmdCancel, cmdApply}) {
        constexpr int kClosing = 120;
        left -= kClosing;
        Put(*button, QRect(left, kSize.height() - 22 - kButton, kClosing, kButton));
        left -= 12;
    }
}

QString f_Edit::Run(const fs::path& song) {
    mChanges.clear();
    ShowFolder(song.parent_path());
    ShowFacts({song, {}, {}, {}});
    const auto facts = std::make_shared<editor::SongFacts>();
    const QObject run;
    platform::DoAside(
        &run, [facts, song] { *facts = editor::FactsOf(song); },
        [this, facts] { LetEdit(*facts); });
    if (WaitForApply())
        Write({{song, [wanted = Wanted(*facts)](editor::SongFacts& now) { now = wanted; }}});
    hide();
    return platform::KeyFromPath(mChanges.empty() ? song : mChanges.front().after.path);
}

/// What is typed before the song was read would be lost.
void f_Edit::LetEdit(const editor::SongFacts& facts) {
    ShowFacts(facts);
    for (QLineEdit* box : {tFileName, tSongTitle, tArtist})
        box->setReadOnly(false);
}

void f_Edit::ShowFacts(const editor::SongFacts& facts) {
    tArtist->setText(facts.artist);
    tSongTitle->setText(facts.title);
    tFileName->setText(editor::WithoutEnding(platform::ShownText(facts.path.filename())));
    mShownName = tFileName->text();
}

void f_Edit::ShowFolder(const fs::path& folder) {
    const QString text = QDir::toNativeSeparators(platform::ShownText(folder / fs::path()));
    constexpr int kWidth = kSize.width() - 2 * kMargin;
    // At some sizes of the stage letters are a little wider.
    const QFontMetrics metrics(ScreenFont(kControlFont));
    lPath->setText(metrics.elidedText(text, Qt::ElideMiddle, kWidth - 20));
    lPath->setAccessibleName(text);
    lPath->setToolTip(toolkit::ToolTipOf(text));
}

/// True if the dialog was applied. It then stays open but disabled, so that the editor cannot be
/// used while the file is changed.
bool f_Edit::WaitForApply() {
    Cancelled = true;
    mWaiting = true;
    for (QLineEdit* box : {tFileName, tSongTitle, tArtist})
        box->setReadOnly(true);
    setEnabled(true);
    ShowInPlace();
    tFileName->setFocus();
    platform::WaitWhile([this] { return mWaiting && isVisible(); });
    mWaiting = false;
    setEnabled(false);
    return !Cancelled;
}

editor::SongFacts f_Edit::Wanted(const editor::SongFacts& before) const {
    editor::SongFacts wanted = before;
    wanted.path.replace_filename(NewName(before.path.filename()));
    wanted.title = platform::TrimBlanks(tSongTitle->text());
    wanted.artist = platform::TrimBlanks(tArtist->text());
    return wanted;
}

fs::path f_Edit::NewName(const fs::path& ownName) const {
    const bool touched = tFileName->text() != mShownName;
    const QString typed = editor::WithEnding(platform::TrimBlanks(tFileName->text()));
    const bool named = touched && !editor::WithoutEnding(typed).isEmpty();
    return named ? platform::PathFromText(typed) : ownName;
}

void f_Edit::Write(const std::vector<editor::SongWish>& wishes) {
    mChanges = editor::ChangeAside(wishes, [this] { return isVisible(); });
}

/// Removes what no file name may contain, and leaves the cursor where the user types.
void f_Edit::tFileName_Change() {
    const QString text = tFileName->text();
    const QString kept = editor::NameCharacters(text);
    if (kept == text)
        return;
    const auto cursor = editor::NameCharacters(text.left(tFileName->cursorPosition())).size();
    if (tFileName->isUndoAvailable()) {
        // Repeats the edit without these characters, so that undoing never brings them back.
        tFileName->undo();
        EditText(*tFileName, kept);
    } else {
        tFileName->setText(kept);
    }
    tFileName->setCursorPosition(static_cast<int>(cursor));
}

void f_Edit::cmdCombine_Click() {
    if (const auto name = editor::Combine(tArtist->text(), tSongTitle->text()))
        EditText(*tFileName, *name);
    else
        platform::ShowMessage(QStringLiteral("No songtitle or artist to combine."),
                              platform::Icon::Information, QStringLiteral("Mp3 Editor"));
}

void f_Edit::cmdGet_Click() {
    const editor::ArtistAndTitle guess = editor::GuessFromName(tFileName->text());
    EditText(*tSongTitle, guess.title);
    EditText(*tArtist, guess.artist);
}

void f_Edit::cmdCapital_Click() {
    for (QLineEdit* box : {tSongTitle, tArtist, tFileName})
        EditText(*box, editor::CapitalizeWords(box->text()));
}

void f_Edit::cmdRemove_Click() {
    for (QLineEdit* box : {tFileName, tSongTitle, tArtist})
        EditText(*box, editor::RemoveJunk(box->text()));
}

void f_Edit::cmdApply_Click() {
    if (!mWaiting || tFileName->isReadOnly())
        return;
    Cancelled = false;
    mWaiting = false;
}

void f_Edit::cmdCancel_Click() {
    if (!std::exchange(mWaiting, false))
        hide(); // the disk keeps nobody
}
