#include "game/f_High.h"

#include "game/Crown.h"
#include "game/HighScoreTable.h"
#include "game/LastNames.h"
#include "platform/Wait.h"
#include "toolkit/Drawing.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>

using namespace toolkit;

namespace {

constexpr QPoint kPlace(611, 152); // right of the table
constexpr QSize kSize(184, 440);
constexpr int kMargin = 10;
constexpr int kInside = kSize.width() - 2 * kMargin;
constexpr QRect kNames(kMargin, 252, kInside, 176);
constexpr int kLongestName = 20;

/// Tells screen readers nothing about its selected name, which the text box has as well.
class QuietList : public QListWidget {
public:
    using QListWidget::QListWidget;

protected:
    void selectionChanged(const QItemSelection& now, const QItemSelection& before) override {
        // The list view is what would tell them. NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractItemView::selectionChanged(now, before);
    }
};

} // namespace

f_High::f_High()
    : Form(QStringLiteral("f_High"), kSize), Label1(new QLabel(this)), Text1(new QLineEdit(this)),
      cmdContinue(new QPushButton(QStringLiteral("Continue"), this)),
      lNames(new QLabel(QStringLiteral("Names used last:"), this)), Names(new QuietList(this)) {
    SetModal();
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setWordWrap(true);
    Label1->setBuddy(Text1);
    Put(*Label1, QRect(kMargin, 70, kInside, 76));
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("Name"));
    Text1->setMaxLength(kLongestName);
    Text1->installEventFilter(this);
    Put(*Text1, QRect(kMargin, 150, kInside, 34));
    cmdContinue->setObjectName(QStringLiteral("cmdContinue"));
    Put(*cmdContinue, QRect((kSize.width() - 130) / 2, 192, 130, 34));
    lNames->setObjectName(QStringLiteral("lNames"));
    lNames->setBuddy(Names);
    Put(*lNames, QRect(kMargin, 231, kInside, 20));
    Names->setObjectName(QStringLiteral("Names"));
    Names->setAccessibleName(lNames->text());
    Names->setFocusPolicy(Qt::NoFocus);
    Names->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Put(*Names, kNames);

    connect(cmdContinue, &QPushButton::clicked, this, &f_High::cmdContinue_Click);
    connect(Text1, &QLineEdit::returnPressed, this, &f_High::cmdContinue_Click);
    connect(Text1, &QLineEdit::textEdited, this, [this](const QString& text) {
        mTyped = text;
        Names->setCurrentRow(-1);
    });
    connect(Names, &QListWidget::currentTextChanged, this, [this](const QString& name) {
        if (!name.isEmpty())
            Text1->setText(name);
    });
    connect(this, &Form::CloseRequested, this, &f_High::cmdContinue_Click);
}

std::optional<QString> f_High::GetName(const QString& prompt, int rank, std::int32_t score) {
    if (platform::Quitting())
        return std::nullopt;
    Label1->setText(prompt);
    Text1->clear();
    mTyped.clear();
    OfferNames();
    Draw(rank, score);
    mWaiting = true;
    MoveTo(kPlace);
    Appear();
    Text1->setFocus();
    platform::WaitWhile([this] { return mWaiting; });
    hide();
    if (mWaiting) // interrupted by a quit
        return std::nullopt;
    if (const QString typed = Text1->text().trimmed(); !typed.isEmpty())
        game::RememberName(typed);
    return game::PlayerName(Text1->text());
}

void f_High::Draw(int rank, std::int32_t score) {
    constexpr double kCenter = kSize.width() / 2.0;
    constexpr QSize kCrown(72, 54);
    const auto write = [this](const QString& text, double points, int top, ColorRef color) {
        Dc()->SetFont(RoundFont(points, true));
        CenteredText(Dc(), text, kCenter, top, kInside, color, 2);
        AddCaption(text, QRect(kMargin, top, kInside, static_cast<int>(Dc()->TextHeight())));
    };
    DrawPanel(Dc());
    ClearCaptions();
    write(QStringLiteral("Place %1").arg(rank), 20, 8, kGold);
    write(QStringLiteral("%1 Points").arg(score), 14, 42, Rgb(100, 200, 250));
    if (Names->count() == 0)
        game::DrawCrown(
            Dc(), QRect(kNames.center() - QPoint(kCrown.width(), kCrown.height()) / 2, kCrown),
            kGold);
    Refresh();
}

void f_High::OfferNames() {
    Names->clear();
    Names->addItems(game::LastNames());
    Names->setVisible(Names->count() > 0);
    lNames->setVisible(Names->count() > 0);
}

bool f_High::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress || Names->count() == 0)
        return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Up && key != Qt::Key_Down)
        return false;
    Step(key == Qt::Key_Down ? 1 : -1);
    return true;
}

void f_High::Step(int by) {
    const int row = std::clamp(Names->currentRow() + by, -1, Names->count() - 1);
    Names->setCurrentRow(row);
    if (row < 0)
        Text1->setText(mTyped);
    Announce(Text1->text());
}

void f_High::cmdContinue_Click() {
    mWaiting = false;
    hide();
}
