#include "toolkit/Style.h"

#include "toolkit/Canvas.h"
#include "toolkit/NightStyle.h"
#include "toolkit/Palette.h"
#include "toolkit/Picture.h"
#include "toolkit/Place.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QIcon>
#include <QLibrary>
#include <QLocale>
#include <QPalette>
#include <QThread>
#include <future>

namespace toolkit {

namespace {

QPalette NightPalette() {
    const QColor ground(18, 16, 64);
    const QColor field = ToQColor(kField);
    const QColor light = ToQColor(kNightText);
    QPalette palette(QColor(42, 60, 200), ground);
    palette.setColor(QPalette::Window, ground);
    palette.setColor(QPalette::WindowText, light);
    palette.setColor(QPalette::Base, field);
    palette.setColor(QPalette::AlternateBase, QColor(13, 11, 46));
    palette.setColor(QPalette::Text, light);
    palette.setColor(QPalette::PlaceholderText, QColor(150, 150, 210));
    palette.setColor(QPalette::Button, QColor(36, 48, 160));
    palette.setColor(QPalette::ButtonText, Qt::white);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(90, 70, 240));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, field);
    palette.setColor(QPalette::ToolTipText, light);
    palette.setColor(QPalette::Link, QColor(140, 160, 255));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(165, 170, 220));
    return palette;
}

} // namespace

void ApplyStyle() {
    QApplication::setStyle(new NightStyle);
    QApplication::setPalette(NightPalette());
    SetControlFonts();
}

void WriteNumbersInEnglish() {
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void PreloadFontSettings() {
    QThread::currentThread(); // Qt takes the thread that first uses it for the program's main one
    static const std::future<void> preloading = std::async(std::launch::async, [] {
        const auto read = reinterpret_cast<int (*)()>(
            QLibrary::resolve(QStringLiteral("fontconfig"), 1, "FcInit"));
        if (read != nullptr)
            read();
    });
}

void PreloadFont() {
    static const std::future<void> preloading = std::async(std::launch::async, [] {
        for (const bool bold : {false, true})
            [[maybe_unused]] const double width =
                QFontMetricsF(RoundFont(12, bold)).horizontalAdvance(u'S');
    });
}

void SetProgramIcon() {
    QApplication::setWindowIcon(
        QIcon(QString::fromStdString(ProgramFile(QStringLiteral("Images\\icon.png")).string())));
}

} // namespace toolkit
