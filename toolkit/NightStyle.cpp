#include "toolkit/NightStyle.h"

#include "toolkit/Canvas.h"
#include "toolkit/MessageSign.h"
#include "toolkit/Palette.h"
#include "toolkit/Place.h"

#include <QDialog>
#include <QPainter>
#include <QStyleOption>
#include <cmath>

namespace toolkit {

namespace {

struct Pill {
    QColor rim;
    QColor top;
    QColor bottom;
};

const Pill& PillOf(QStyle::State state) {
    static const Pill normal{ToQColor(kPeriwinkle), QColor(66, 84, 216), QColor(16, 20, 88)};
    static const Pill hover{QColor(201, 184, 255), QColor(118, 98, 250), QColor(40, 18, 132)};
    static const Pill pressed{ToQColor(kPink), QColor(14, 8, 50), QColor(70, 44, 190)};
    static const Pill disabled{QColor(70, 76, 140), QColor(30, 34, 92), QColor(18, 18, 62)};
    if (!state.testFlag(QStyle::State_Enabled))
        return disabled;
    if (state.testAnyFlags(QStyle::State_Sunken | QStyle::State_On))
        return pressed;
    return state.testFlag(QStyle::State_MouseOver) ? hover : normal;
}

bool ShowsFocus(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_HasFocus) &&
           option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

/// A box with rounded corners whose rim lies entirely inside `area`. `radius` and `width` are
/// logical pixels.
void DrawRound(QPainter& painter, const QRect& area, double radius, const QBrush& fill,
               const QColor& rim, double width) {
    radius *= StageScale();
    width *= StageScale();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(rim, width));
    painter.setBrush(fill);
    const double inset = width / 2;
    painter.drawRoundedRect(QRectF(area).adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
}

void DrawButton(QPainter& painter, const QStyleOption& option) {
    const Pill& pill = PillOf(option.state);
    QLinearGradient fill(option.rect.topLeft(), option.rect.bottomLeft());
    fill.setColorAt(0, pill.top);
    fill.setColorAt(1, pill.bottom);
    const bool focus = ShowsFocus(option);
    DrawRound(painter, option.rect, 8, fill, focus ? ToQColor(kGold) : pill.rim, focus ? 2 : 1);
}

void DrawField(QPainter& painter, const QStyleOption& option) {
    const bool focus = option.state.testFlag(QStyle::State_HasFocus);
    DrawRound(painter, option.rect, 5, option.palette.base(),
              focus ? ToQColor(kGold) : QColor(76, 88, 190), 1);
}

void DrawDialogFrame(QPainter& painter, const QRect& area) {
    painter.setPen(ToQColor(kFrameLight));
    painter.drawLine(area.topLeft(), area.topRight());
    painter.drawLine(area.topLeft(), area.bottomLeft());
    painter.setPen(ToQColor(kFrameDark));
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    painter.drawLine(area.topRight(), area.bottomRight());
}

void DrawCheckBox(QPainter& painter, const QStyleOption& option) {
    DrawRound(painter, option.rect, 4, option.palette.base(),
              ShowsFocus(option) ? ToQColor(kGold) : ToQColor(kPeriwinkle), 1);
    if (!option.state.testFlag(QStyle::State_On))
        return;
    const QRectF box = option.rect;
    const auto at = [&box](double x, double y) {
        return QPointF(box.x() + x * box.width(), box.y() + y * box.height());
    };
    const QPointF tick[] = {at(0.22, 0.52), at(0.42, 0.74), at(0.78, 0.26)};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(kGold), 2 * StageScale()));
    painter.drawPolyline(tick, 3);
    painter.restore();
}

QIcon MessageIcon(platform::Icon icon) {
    const double ratio = std::max(Canvas::Ratio(), 1.0);
    QPixmap picture(QSize(kMessageSign, kMessageSign) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PaintMessageSign(painter, icon);
    return QIcon(picture);
}

int Scaled(int length) { return static_cast<int>(std::lround(length * StageScale())); }

} // namespace

void NightStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QDialog*>(widget) != nullptr)
        widget->setAttribute(Qt::WA_StyledBackground);
}

int NightStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
    if (metric == PM_MenuPanelWidth)
        return 1; // the frame's, which the base style does not draw
    return Scaled(QProxyStyle::pixelMetric(metric, option, widget));
}

int NightStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_EtchDisabledText)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QRect NightStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    constexpr int kBesideText = 4; // room for the rounded corners
    const QRect area = QProxyStyle::subElementRect(element, option, widget);
    return element == SE_LineEditContents
               ? area.adjusted(Scaled(kBesideText), 0, -Scaled(kBesideText), 0)
               : area;
}

void NightStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        return DrawButton(*painter, *option);
    case PE_PanelLineEdit:
        return DrawField(*painter, *option);
    case PE_IndicatorCheckBox:
        return DrawCheckBox(*painter, *option);
    case PE_FrameMenu:
        painter->setPen(ToQColor(kFrameLight));
        return painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    case PE_FrameFocusRect: // the rim shows it
        return;
    case PE_Widget: // drawn for dialogs only: see `polish`
        return DrawDialogFrame(*painter, widget->rect().adjusted(0, 0, -1, -1));
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

QIcon NightStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                               const QWidget* widget) const {
    switch (icon) {
    case SP_MessageBoxInformation:
        return MessageIcon(platform::Icon::Information);
    case SP_MessageBoxWarning:
        return MessageIcon(platform::Icon::Warning);
    case SP_MessageBoxCritical:
        return MessageIcon(platform::Icon::Critical);
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

} // namespace toolkit
