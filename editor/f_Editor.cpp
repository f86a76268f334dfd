#include "editor/f_Editor.h"

#include "toolkit/Palette.h"

#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>

using namespace toolkit;

namespace {

constexpr int kMargin = 20;
constexpr QRect kList(kMargin, 72, kStageSize.width() - 2 * kMargin, 432);
constexpr int kGap = 8;
constexpr int kInRow = 4;
constexpr QRect kName(kMargin, 44, 200, 22);
constexpr QRect kFind(kMargin + kList.width() - 140, 41, 140, 27);
constexpr QSize kButton((kList.width() - (kInRow - 1) * kGap) / kInRow, 36);

} // namespace

f_Editor::f_Editor()
    : Screen(QStringLiteral("f_Editor")),
      pList(new PictureBox(this, QStringLiteral("pList"), kList.size())),
      pAddFile(new PictureBox(this, QStringLiteral("pAddFile"), kButton)),
      pAddDir(new PictureBox(this, QStringLiteral("pAddDir"), kButton)),
      pRemove(new PictureBox(this, QStringLiteral("pRemove"), kButton)),
      pEdit(new PictureBox(this, QStringLiteral("pEdit"), kButton)),
      pPlay(new PictureBox(this, QStringLiteral("pPlay"), kButton)),
      pLoad(new PictureBox(this, QStringLiteral("pLoad"), kButton)),
      pSave(new PictureBox(this, QStringLiteral("pSave"), kButton)),
      pMenu(new PictureBox(this, QStringLiteral("pMenu"), kButton)), tFind(new QLineEdit(this)),
      lName(new QLabel(this)) {
    setWindowTitle(Title());
    setAcceptDrops(true);
    tFind->setObjectName(QStringLiteral("tFind"));
    tFind->setAccessibleName(QStringLiteral("Find"));
    tFind->setPlaceholderText(QStringLiteral("Find (Ctrl+F)"));
    Put(*tFind, kFind);
    lName->setObjectName(QStringLiteral("lName"));
    lName->setTextFormat(Qt::PlainText);
    Put(*lName, kName);
    pList->setAccessibleName(QStringLiteral("Songs"));
    pList->MoveTo(kList.x(), kList.y());
    pList->Dc()->SetFont(RoundFont(11));

    QPoint place(kMargin, kList.y() + kList.height() + kGap);
    for (PictureBox* button : {pAddFile, pAddDir, pRemove, pEdit, pPlay, pLoad, pSave, pMenu}) {
        button->Dc()->SetFont(RoundFont(13, true));
        button->MoveTo(place.x(), place.y());
        place.rx() += kButton.width() + kGap;
        if (button == pEdit)
            place = QPoint(kMargin, place.y() + kButton.height() + kGap);
    }
}

void f_Editor::ShowName(const QString& name, bool unsaved) {
    const QString state = unsaved ? QStringLiteral(", not saved") : QString();
    setWindowTitle(name.isEmpty() ? Title() : name + state + QStringLiteral(" - ") + Title());
    // At some sizes of the stage letters are a little wider.
    const QFontMetrics metrics(RoundFont(kControlFont));
    const int width = kName.width() * 9 / 10 - metrics.horizontalAdvance(state);
    lName->setText(metrics.elidedText(name, Qt::ElideRight, width) + state);
    lName->setAccessibleName(name + state);
    lName->setVisible(!name.isEmpty());
    lName->setToolTip(name.toHtmlEscaped());
}

void f_Editor::ShowFound(bool found) {
    QPalette palette = tFind->palette();
    palette.setColor(QPalette::Text, found ? ToQColor(kNightText) : QColor(255, 50, 50));
    tFind->setPalette(palette);
    tFind->setAccessibleDescription(found ? QString() : QStringLiteral("Not found"));
}
