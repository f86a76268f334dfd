#include "app/f_Menu.h"

#include "toolkit/Drawing.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>

using namespace toolkit;

namespace {

constexpr QSize kFirstStage(400, 88);
constexpr QSize kSecondStage(400, 50);
constexpr QSize kScores(96, 26);
constexpr int kMostPlayers = 12;

/// A drop-down list that ignores typed text but not the keys that move through it.
class PlayerList : public QComboBox {
public:
    using QComboBox::QComboBox;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            showPopup();
        else if (event->text().isEmpty() || !event->text().front().isPrint() ||
                 event->key() == Qt::Key_Space)
            QComboBox::keyPressEvent(event);
        else
            event->ignore();
    }
};

} // namespace

f_Menu::f_Menu()
    : Screen(QStringLiteral("f_Menu")),
      pSingle(new PictureBox(this, QStringLiteral("pSingle"), kFirstStage)),
      pMulti(new PictureBox(this, QStringLiteral("pMulti"), kFirstStage)),
      pEditor(new PictureBox(this, QStringLiteral("pEditor"), kFirstStage)),
      lPlayers(new QLabel(QStringLiteral("Players:"), this)), cPlayers(new PlayerList(this)),
      PChoice1(new PictureBox(this, QStringLiteral("PChoice1"), kSecondStage)),
      pChoice2(new PictureBox(this, QStringLiteral("pChoice2"), kSecondStage)),
      pChoice3(new PictureBox(this, QStringLiteral("pChoice3"), kSecondStage)),
      Sizes(new SizeChoice(*this)),
      Scores(new WordButton(new PictureBox(this, QStringLiteral("pScores"), kScores),
                            QStringLiteral("High scores"))) {
    pSingle->setAccessibleName(QStringLiteral("One player"));
    pMulti->setAccessibleName(QStringLiteral("Several players"));
    pEditor->setAccessibleName(QStringLiteral("Playlist editor"));
    for (PictureBox* choice : {PChoice1, pChoice2, pChoice3})
        choice->Dc()->SetFont(RoundFont(16, true));

    constexpr int kBelow = 8; // the same as for the row of sizes
    PictureBox& scores = Scores->Box();
    scores.Dc()->SetFont(RoundFont(10));
    scores.MoveTo(Width() - 14 - kScores.width(), Height() - kScores.height() - kBelow);

    lPlayers->setObjectName(QStringLiteral("lPlayers"));
    Put(*lPlayers, QRect(300, 190, 100, 26));
    lPlayers->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    cPlayers->setObjectName(QStringLiteral("cPlayers"));
    cPlayers->setAccessibleName(QStringLiteral("Players"));
    Put(*cPlayers, QRect(410, 190, 80, 26));
    for (int players = 2; players <= kMostPlayers; ++players)
        cPlayers->addItem(QString::number(players));
}

void f_Menu::DrawBy() {
    const QString credits = QStringLiteral("The Songrush makers");
    Dc()->SetFont(RoundFont(9, true));
    Drawing(Dc()).Text(credits, Rgb(140, 140, 230), kBlack, 400 - Dc()->TextWidth(credits) / 2, 73,
                       1);
    AddQuietCaption(credits, QRect(0, 73, Width(), static_cast<int>(Dc()->TextHeight())));
    Refresh();
}
