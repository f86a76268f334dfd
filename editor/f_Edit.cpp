#include "editor/f_Edit.h"

#include "editor/TitleRules.h"
#include "platform/Aside.h"
#include "platform/Message.h"
#include "platform/Text.h"
#include "platform/Wait.h"
#include "toolkit/Drawing.h"
#include "toolkit/Palette.h"
#include "toolkit/ToolTip.h"

#include <QCheckBox>
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

constexpr QSize kSize(640, 352);
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
      cmdRemove(new QPushButton(QStringLiteral("&Remove Junk"), this)), cAll(new QCheckBox(this)),
      lTitleFits(new QLabel(this)), lArtistFits(new QLabel(this)),
      cmdNext(new QPushButton(QStringLiteral("Apply and N&ext"), this)),
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
    for (QLineEdit* box : {tSongTitle, tArtist})
        connect(box, &QLineEdit::textChanged, this, &f_Edit::ShowFitting);
    connect(cmdNext, &QPushButton::clicked, this, &f_Edit::cmdNext_Click);
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
    cAll->setObjectName(QStringLiteral("cAll"));
    lTitleFits->setObjectName(QStringLiteral("lTitleFits"));
    lArtistFits->setObjectName(QStringLiteral("lArtistFits"));
    cmdNext->setObjectName(QStringLiteral("cmdNext"));
    cmdApply->setObjectName(QStringLiteral("cmdApply"));
    cmdCancel->setObjectName(QStringLiteral("cmdCancel"));

    tFileName->setAccessibleName(QStringLiteral("File Name"));
    tSongTitle->setAccessibleName(QStringLiteral("Song Title"));
    tArtist->setAccessibleName(QStringLiteral("Artist"));
    Label1->setBuddy(tFileName);
    Label2->setBuddy(tSongTitle);
    Label3->setBuddy(tArtist);
    for (QPushButton* button :
         {cmdCombine, cmdGet, cmdCapital, cmdRemove, cmdNext, cmdApply, cmdCancel}) {
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
    constexpr int kHint = 20;
    const std::pair<QLabel*, QLabel*> rows[] = {
        {Label1, nullptr}, {Label2, lTitleFits}, {Label3, lArtistFits}};
    int top = 50;
    for (const auto& [caption, hint] : rows) {
        Put(*caption, QRect(kMargin, top, kCaption, kBox));
        Put(*caption->buddy(), QRect(kMargin + kCaption, top, kWidth - kCaption, kBox));
        top += kBox + 8;
        if (hint == nullptr)
            continue;
        Put(*hint, QRect(kMargin + kCaption + 8, top - 6, kWidth - kCaption - 8, kHint));
        hint->setTextFormat(Qt::PlainText);
        SetFontPoints(*hint, 10);
        top += kHint;
    }
    Put(*cAll, QRect(kMargin + kCaption, top, kWidth - kCaption, kHint + 4));
    top += kHint + 8;
    constexpr int kButton = 34;
    const std::pair<QPushButton*, int> helpers[] = {
        {cmdCombine, 176}, {cmdGet, 176}, {cmdCapital, 96}, {cmdRemove, 120}};
    int left = kMargin;
    for (const auto& [button, width] : helpers) {
        Put(*button, QRect(left, top + 6, width, kButton));
        left += width + 8;
    }
    left = kSize.width() - kMargin;
    const std::pair<QPushButton*, int> closing[] = {
        {cmdCancel, 120}, {cmdApply, 120}, {cmdNext, 150}};
    for (const auto& [button, width] : closing) {
        left -= width;
        Put(*button, QRect(left, kSize.height() - 22 - kButton, width, kButton));
        left -= 12;
    }
}

QString f_Edit::Run(const fs::path& song, const editor::Series& series) {
    mChanges.clear();
    mNext = false;
    ShowSeries(series);
    const bool several = series.songs.size() > 1;
    ShowFolder(song.parent_path(),
               several ? QStringLiteral("%1 of %2: ").arg(series.place + 1).arg(series.songs.size())
                       : QString());
    ShowFacts({song, {}, {}, {}, {}, {}});
    const auto facts = std::make_shared<editor::SongFacts>();
    const QObject run;
    platform::DoAside(
        &run, [facts, song] { *facts = editor::FactsOf(song); },
        [this, facts] { LetEdit(*facts); });
    if (WaitForApply())
        Write(Wishes(song, series));
    hide();
    return platform::KeyFromPath(mChanges.empty() ? song : mChanges.front().after.path);
}

/// Only once the song has been read: what was typed before would be lost.
void f_Edit::LetEdit(const editor::SongFacts& facts) {
    ShowFacts(facts);
    for (QLineEdit* box : {tFileName, tSongTitle, tArtist})
        box->setReadOnly(false);
}

void f_Edit::ShowFacts(const editor::SongFacts& facts) {
    tArtist->setText(facts.ShownArtist());
    tSongTitle->setText(facts.ShownTitle());
    tFileName->setText(editor::WithoutEnding(platform::ShownText(facts.path.filename())));
    mShownName = tFileName->text();
}

void f_Edit::ShowSeries(const editor::Series& series) {
    const auto count = series.songs.size();
    cAll->setVisible(count > 1);
    cAll->setChecked(false);
    cAll->setText(QStringLiteral("This artist for all %1 &marked songs").arg(count));
    cAll->setAccessibleName(cAll->text().remove(u'&'));
    cmdNext->setVisible(series.place + 1 < count);
}

void f_Edit::ShowFitting() {
    const std::pair<QLineEdit*, QLabel*> hints[] = {{tSongTitle, lTitleFits},
                                                    {tArtist, lArtistFits}};
    for (const auto& [box, label] : hints) {
        const editor::Fitting fitting =
            box == tSongTitle ? editor::FitTitle(box->text()) : editor::FitArtist(box->text());
        const bool fits = !fitting.Cut() && !fitting.lost;
        QPalette palette = label->palette();
        palette.setColor(QPalette::WindowText, fits ? QColor(190, 190, 250) : ToQColor(kGold));
        label->setPalette(palette);
        const int width = label->width() * 19 / 20;
        label->setText(label->fontMetrics().elidedText(fitting.Hint(), Qt::ElideMiddle, width));
        box->setAccessibleDescription(fitting.Hint());
    }
}

void f_Edit::ShowFolder(const fs::path& folder, const QString& place) {
    const QString text = place + QDir::toNativeSeparators(platform::ShownText(folder / fs::path()));
    constexpr int kWidth = kSize.width() - 2 * kMargin;
    // At some sizes of the stage letters are a little wider.
    const QFontMetrics metrics(RoundFont(kControlFont));
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

fs::path f_Edit::NewName(const fs::path& ownName) const {
    const bool touched = tFileName->text() != mShownName;
    const QString typed = editor::WithEnding(platform::TrimBlanks(tFileName->text()));
    const bool named = touched && !editor::WithoutEnding(typed).isEmpty();
    return named ? platform::PathFromText(typed) : ownName;
}

/// The changes that the boxes ask for.
std::vector<editor::SongWish> f_Edit::Wishes(const fs::path& song,
                                             const editor::Series& series) const {
    const QString title = platform::TrimBlanks(tSongTitle->text());
    const QString artist = platform::TrimBlanks(tArtist->text());
    std::vector<editor::SongWish> wishes = {
        {song, [title, artist, name = NewName(song.filename())](editor::SongFacts& facts) {
             facts.path.replace_filename(name);
             facts.title = title;
             facts.artist = artist;
         }}};
    if (!cAll->isChecked())
        return wishes;
    // A tag without a title would leave the artist to a newer one.
    const auto setArtist = [artist](editor::SongFacts& facts) {
        facts.title = facts.ShownTitle();
        facts.artist = artist;
    };
    for (const fs::path& other : series.songs)
        if (other != song)
            wishes.push_back({other, setArtist});
    return wishes;
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

void f_Edit::cmdNext_Click() {
    mNext = mWaiting && !tFileName->isReadOnly();
    cmdApply_Click();
}

void f_Edit::cmdCancel_Click() {
    if (!std::exchange(mWaiting, false))
        hide(); // nobody waits for the disk
}
