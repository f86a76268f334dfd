#include "app/f_Quick.h"

#include <QLabel>

using namespace toolkit;

namespace {

constexpr QSize kChoice(400, 60);

} // namespace

f_Quick::f_Quick()
    : Screen(QStringLiteral("f_Quick")),
      lExplain(new QLabel(QStringLiteral("Where do the songs come from?"), this)),
      pUseDir(new PictureBox(this, QStringLiteral("pUseDir"), kChoice)),
      pUsePlayList(new PictureBox(this, QStringLiteral("pUsePlayList"), kChoice)),
      pEditor(new PictureBox(this, QStringLiteral("pEditor"), kChoice)),
      pPlayOn(new PictureBox(this, QStringLiteral("pPlayOn"), kChoice)),
      pStartOver(new PictureBox(this, QStringLiteral("pStartOver"), kChoice)) {
    lExplain->setObjectName(QStringLiteral("lExplain"));
    SetFontPoints(*lExplain, 18);
    lExplain->setAlignment(Qt::AlignHCenter | Qt::AlignBottom); // clear of the display
    Put(*lExplain, QRect(100, 120, 600, 70));
    for (PictureBox* choice : {pUseDir, pUsePlayList, pEditor, pPlayOn, pStartOver})
        choice->Dc()->SetFont(RoundFont(kChoiceFont, true));
}
