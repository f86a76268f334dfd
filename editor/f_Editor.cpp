#include "editor/f_Editor.h"

using namespace toolkit;

namespace {

constexpr int kMargin = 20;
constexpr QRect kList(kMargin, 72, kStageSize.width() - 2 * kMargin, 432);
constexpr int kGap = 8;
constexpr int kInRow = 4;
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
      pMenu(new PictureBox(this, QStringLiteral("pMenu"), kButton)) {
    setWindowTitle(QStringLiteral("Mp3 Editor"));
    pList->setAccessibleName(QStringLiteral("Songs"));
    pList->MoveTo(kList.x(), kList.y());
    pList->Dc()->SetFont(ScreenFont(12));

    QPoint place(kMargin, kList.y() + kList.height() + kGap);
    for (PictureBox* button : {pAddFile, pAddDir, pRemove, pEdit, pPlay, pLoad, pSave, pMenu}) {
        button->Dc()->SetFont(ScreenFont(14));
        button->MoveTo(place.x(), place.y());
        place.rx() += kButton.width() + kGap;
        if (button == pEdit)
            place = QPoint(kMargin, place.y() + kButton.height() + kGap);
    }
}
