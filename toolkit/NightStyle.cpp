#include "toolkit/NightStyle.h"

#include "toolkit/Canvas.h"
#include "toolkit/Palette.h"

#include <QDialog>
#include <QPainter>
#include <QStyleOption>

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

/// A box with rounded corners whose rim lies entirely inside `area`.
void DrawRound(QPainter& painter, const QRect& area, double radius, const QBrush& fill,
               const QColor& rim, double width) {
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

/// The signs of message boxes, in strokes of light.
class MessageSign {
public:
    explicit MessageSign(ColorRef color) : mPicture(Pixels(), Pixels()) {
        mPicture.setDevicePixelRatio(Canvas::Ratio());
        mPicture.fill(Qt::transparent);
        mPainter.begin(&mPicture);
        mPainter.setRenderHint(QPainter::Antialiasing);
        mPainter.setPen(QPen(ToQColor(color), 3, Qt::SolidLine, Qt::RoundCap));
        mPainter.setBrush(ToQColor(kField));
        mPainter.drawEllipse(QPointF(24, 24), 21, 21);
        mPainter.setPen(QPen(ToQColor(color), 4, Qt::SolidLine, Qt::RoundCap));
    }
    MessageSign& Line(QPointF from, QPointF to) {
        mPainter.drawLine(from, to);
        return *this;
    }
    MessageSign& Dot(QPointF at) {
        mPainter.drawPoint(at);
        return *this;
    }
    QIcon Icon() {
        mPainter.end();
        return QIcon(mPicture);
    }

private:
    static int Pixels() { return qRound(48 * Canvas::Ratio()); }

    QPixmap mPicture;
    QPainter mPainter;
};

} // namespace

void NightStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (qobject_cast<QDialog*>(widget) != nullptr)
        widget->setAttribute(Qt::WA_StyledBackground);
}

int NightStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

QRect NightStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    constexpr int kBesideText = 4; // room for the rounded corners
    const QRect area = QProxyStyle::subElementRect(element, option, widget);
    return element == SE_LineEditContents ? area.adjusted(kBesideText, 0, -kBesideText, 0) : area;
}

void NightStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        return DrawButton(*painter, *option);
    case PE_PanelLineEdit:
        return DrawField(*painter, *option);
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
        return MessageSign(kPeriwinkle).Dot({24, 15}).Line({24, 22}, {24, 34}).Icon();
    case SP_MessageBoxWarning:
        return MessageSign(kGold).Line({24, 14}, {24, 26}).Dot({24, 33}).Icon();
    case SP_MessageBoxCritical:
        return MessageSign(kPink).Line({17, 17}, {31, 31}).Line({31, 17}, {17, 31}).Icon();
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

} // namespace toolkit
