#include "game/f_High.h"

#include "game/HighScoreTable.h"
#include "platform/Wait.h"
#include "toolkit/Drawing.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace toolkit;

namespace {

constexpr QSize kSize(440, 190);
constexpr int kLongestName = 40;

} // namespace

f_High::f_High()
    : Form(QStringLiteral("f_High"), kSize), Label1(new QLabel(this)), Text1(new QLineEdit(this)),
      cmdContinue(new QPushButton(QStringLiteral("Continue"), this)) {
    DrawPanel(Dc());
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    Label1->setWordWrap(true);
    Label1->setBuddy(Text1);
    Put(*Label1, QRect(20, 16, kSize.width() - 40, 60));
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(QStringLiteral("Name"));
    Text1->setMaxLength(kLongestName);
    Put(*Text1, QRect(40, 84, kSize.width() - 80, 34));
    cmdContinue->setObjectName(QStringLiteral("cmdContinue"));
    Put(*cmdContinue, QRect((kSize.width() - 140) / 2, 136, 140, 36));

    connect(cmdContinue, &QPushButton::clicked, this, &f_High::cmdContinue_Click);
    connect(Text1, &QLineEdit::returnPressed, this, &f_High::cmdContinue_Click);
    connect(this, &Form::CloseRequested, this, &f_High::cmdContinue_Click);
}

std::optional<QString> f_High::GetName(const QString& prompt) {
    if (platform::Quitting())
        return std::nullopt;
    Label1->setText(prompt);
    Text1->clear();
    mWaiting = true;
    Announce(prompt);
    ShowInPlace();
    Text1->setFocus();
    platform::WaitWhile([this] { return mWaiting; });
    hide();
    if (mWaiting) // interrupted by a quit
        return std::nullopt;
    return game::PlayerName(Text1->text());
}

void f_High::cmdContinue_Click() {
    mWaiting = false;
    hide();
}
