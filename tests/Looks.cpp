#include "tests/Looks.h"

#include "tests/TemporaryFolder.h"
#include "toolkit/Palette.h"
#include "toolkit/Stage.h"
#include "toolkit/Style.h"
#include "toolkit/c_Surface.h"

#include <QAccessible>
#include <QDebug>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QStyleHints>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>

namespace {

/// How many pixels differ by more than `hardly`.
int Differences(const QImage& one, const QImage& other, int hardly) {
    if (one.size() != other.size())
        return -1;
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            count += std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                               std::abs(a.blue() - b.blue())}) > hardly;
        }
    return count;
}

QImage Grab(QWidget& form, const QSize& size) {
    const QImage shown = form.grab().toImage().convertToFormat(QImage::Format_RGB32);
    return shown.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// As large as the stage is in a window of that size.
QImage GrabIn(const QSize& window, QWidget& form, const QSize& size) {
    toolkit::Stage::Get().resize(window);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::ApplicationFontChange);
    return Grab(form, size);
}

/// Only roughly, because letters are not exactly as much larger as all else.
void ExpectSameInALargerWindow(QWidget& form, const char* name) {
    constexpr int kRoughly = 60;
    const QSize size = form.size() / 10;
    const QImage larger = GrabIn(QSize(1000, 750), form, size);
    const QImage before = GrabIn(toolkit::kStageSize, form, size);
    const int differences = Differences(before, larger, kRoughly);
    EXPECT_EQ(differences, 0) << name << ": differs in a larger window";
}

/// What a screen reader can tell of an object and all within it: a line for each. Announcements
/// pass.
QString Told(QAccessibleInterface* object, const QPoint& origin) {
    if (object == nullptr || object->state().invisible ||
        object->role() == QAccessible::Notification)
        return {};
    const QRect place = object->rect().translated(-origin);
    QString told;
    QDebug line(&told);
    line.nospace().noquote() << object->role() << ' ' << place.x() << ' ' << place.y() << ' '
                             << place.width() << ' ' << place.height();
    for (const auto text : {QAccessible::Name, QAccessible::Value, QAccessible::Description})
        line << " | " << object->text(text).replace(u'\n', u'/');
    line << (object->state().disabled ? " disabled\n" : "\n");
    for (int i = 0; i < object->childCount(); ++i)
        line << Told(object->child(i), origin);
    return told;
}

/// The visible controls in the order of the Tab key.
QString TabOrder(const QWidget& form) {
    QStringList names;
    for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain())
        if (form.isAncestorOf(next) && next->isVisible() && next->focusPolicy() & Qt::TabFocus)
            names << QAccessible::queryAccessibleInterface(next)->text(QAccessible::Name);
    return QStringLiteral("Tab: ") + names.join(QStringLiteral(" | ")) + u'\n';
}

void ExpectTold(QWidget& form, const QString& name) {
    const QString told =
        Told(QAccessible::queryAccessibleInterface(&form), form.mapToGlobal(QPoint())) +
        TabOrder(form);
    const std::string expected = BytesOf(SONGRUSH_LOOKS "/" + name.toStdString());
    EXPECT_EQ(told.toStdString(), expected) << name.toStdString();
    if (told.toStdString() != expected)
        std::ofstream(QCoreApplication::applicationDirPath().toStdString() + '/' +
                      name.toStdString())
            << told.toStdString();
}

} // namespace

void ExpectLook(QWidget& form, const char* name) {
    QGuiApplication::styleHints()->setCursorFlashTime(0); // a text's cursor stands still
    const QString file = QLatin1String(name) + QStringLiteral(".png");
    const QImage half = Grab(form, form.size() / 2);
    const QImage expected(QStringLiteral(SONGRUSH_LOOKS "/") + file);
    const int differences = Differences(half, expected, 24);
    EXPECT_EQ(differences, 0) << name << ": pixels that differ";
    if (differences != 0)
        half.save(QCoreApplication::applicationDirPath() + u'/' + file);
    ExpectTold(form, QLatin1String(name) + QStringLiteral(".txt"));
    ExpectSameInALargerWindow(form, name);
}

void PrepareLooks() {
    toolkit::ApplyStyle();
    if (gBack)
        gBack->HDC(0)->Fill(QRect(0, 0, 800, 600), toolkit::kBlack);
}
