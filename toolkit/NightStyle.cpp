#include "toolkit/NightStyle.h"

#include "toolkit/Canvas.h"
#include "toolkit/CutPath.h"
#include "toolkit/MessageSign.h"
#include "toolkit/Palette.h"
#include "toolkit/Place.h"
#include "toolkit/PlainFace.h"

#include <QDialog>
#include <QPainter>
#include <QPolygonF>
#include <QStyleOption>
#include <cmath>
#include <functional>

namespace toolkit {

namespace {

constexpr QColor kRim(76, 88, 190); // of text boxes and lists

const PlainFace& FaceOf(QStyle::State state) {
    static constexpr PlainFace disabled{Rgb(40, 44, 116), Rgb(18, 18, 62), Rgb(70, 76, 140),
                                        Rgb(8, 6, 28), PlainFace::Light::Rest};
    if (!state.testFlag(QStyle::State_Enabled))
        return disabled;
    if (state.testAnyFlags(QStyle::State_Sunken | QStyle::State_On))
        return kBlueFaces[2];
    return kBlueFaces[state.testFlag(QStyle::State_MouseOver) ? 1 : 0];
}

bool ShowsFocus(const QStyleOption& option) {
    return option.state.testFlag(QStyle::State_HasFocus) &&
           option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

/// Lets `paint` draw in logical pixels.
void Scaled(QPainter& painter, const QRect& area,
            const std::function<void(const QRectF& area)>& paint) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.topLeft());
    painter.scale(StageScale(), StageScale());
    paint(QRectF(QPointF(0, 0), QSizeF(area.size()) / StageScale()));
    painter.restore();
}

/// A box with cut corners whose rim lies entirely inside `area`.
void DrawBox(QPainter& painter, const QRect& area, double cut, const QBrush& fill,
             const QColor& rim) {
    Scaled(painter, area, [&](const QRectF& box) {
        painter.setPen(QPen(rim, 1.2));
        painter.setBrush(fill);
        painter.drawPath(CutPath(box.adjusted(0.6, 0.6, -0.6, -0.6), cut));
    });
}

void DrawButton(QPainter& painter, const QStyleOption& option) {
    Scaled(painter, option.rect, [&](const QRectF& button) {
        PaintPlainFace(painter, button, FaceOf(option.state));
        if (!ShowsFocus(option))
            return;
        painter.setPen(QPen(ToQColor(kGold), 2));
        const QRectF frame = button.adjusted(1, 1, -1, -1);
        painter.drawPath(CutPath(frame, CutOf(frame)));
    });
}

/// The sign of a drop-down list, at its right end.
void DrawListArrow(QPainter& painter, const QRect& list) {
    Scaled(painter, list, [&painter](const QRectF& area) {
        const QPointF tip(area.right() - 14, area.center().y() + 2);
        painter.setPen(QPen(ToQColor(kNightText), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF({tip - QPointF(4.5, 4.5), tip, tip - QPointF(-4.5, 4.5)}));
    });
}

void DrawField(QPainter& painter, const QStyleOption& option) {
    const bool focus = option.state.testFlag(QStyle::State_HasFocus);
    DrawBox(painter, option.rect, 5, option.palette.base(), focus ? ToQColor(kGold) : kRim);
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
    DrawBox(painter, option.rect, 3, option.palette.base(),
            ShowsFocus(option) ? ToQColor(kGold) : ToQColor(kPeriwinkle));
    if (!option.state.testFlag(QStyle::State_On))
        return;
    Scaled(painter, option.rect, [&](const QRectF& box) {
        const auto at = [&box](double x, double y) {
            return QPointF(x * box.width(), y * box.height());
        };
        const QPointF tick[] = {at(0.22, 0.52), at(0.42, 0.74), at(0.78, 0.26)};
        painter.setPen(QPen(ToQColor(kGold), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(tick, 3);
    });
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

int Pixels(int length) { return static_cast<int>(std::lround(length * StageScale())); }

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
    return Pixels(QProxyStyle::pixelMetric(metric, option, widget));
}

int NightStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons || hint == SH_EtchDisabledText)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QRect NightStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    constexpr int kBesideText = 4; // room for the cut corners
    const QRect area = QProxyStyle::subElementRect(element, option, widget);
    return element == SE_LineEditContents
               ? area.adjusted(Pixels(kBesideText), 0, -Pixels(kBesideText), 0)
               : area;
}

QRect NightStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                 SubControl part, const QWidget* widget) const {
    constexpr int kBesideText = 6;
    const QRect area = QProxyStyle::subControlRect(control, option, part, widget);
    return control == CC_ComboBox && part == SC_ComboBoxEditField
               ? area.adjusted(Pixels(kBesideText), 0, 0, 0)
               : area;
}

void NightStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element != CE_PushButtonLabel || button == nullptr || !button->icon.isNull())
        return QProxyStyle::drawControl(element, option, painter, widget);
    const int flags = Qt::AlignCenter | Qt::TextShowMnemonic;
    const QRect area = option->rect.translated(0, -Pixels(2)); // the middle of the face
    const bool enabled = option->state.testFlag(State_Enabled);
    painter->setPen(Qt::black);
    drawItemText(painter, area.translated(Pixels(1), Pixels(1)), flags, option->palette, enabled,
                 button->text);
    drawItemText(painter, area, flags, option->palette, enabled, button->text,
                 QPalette::ButtonText);
}

void NightStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (control != CC_ComboBox)
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    DrawButton(*painter, *option);
    DrawListArrow(*painter, option->rect);
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
    case PE_Frame:
        painter->setPen(kRim);
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
