#include "app/f_Load.h"

#include "toolkit/Drawing.h"

#include <QFontMetrics>
#include <QLabel>

using namespace toolkit;

namespace {

constexpr QSize kSize(480, 120);
constexpr int kMargin = 20;

} // namespace

f_Load::f_Load() : Form(QStringLiteral("f_Load"), kSize), lLoading(new QLabel(this)) {
    DrawPanel(Dc());
    lLoading->setObjectName(QStringLiteral("lLoading"));
    lLoading->setTextFormat(Qt::PlainText);
    lLoading->setAlignment(Qt::AlignCenter);
    Put(*lLoading, QRect(kMargin, 0, kSize.width() - 2 * kMargin, kSize.height()));
}

void f_Load::ShowLoading() {
    lLoading->setText(QStringLiteral("Loading..."));
    Announce(lLoading->text());
    ShowInPlace();
}

void f_Load::ShowScan(int songs, const QString& folder) {
    constexpr int kWidth = kSize.width() - 2 * kMargin - 20; // letters may be a little wider
    const QString shown =
        QFontMetrics(RoundFont(kControlFont)).elidedText(folder, Qt::ElideMiddle, kWidth);
    lLoading->setText(QStringLiteral("Searching for MP3s: %1 found\n\n%2").arg(songs).arg(shown));
}
