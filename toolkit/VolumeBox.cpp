#include "toolkit/VolumeBox.h"

#include "platform/Volume.h"
#include "toolkit/ButtonFace.h"
#include "toolkit/Drawing.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>
#include <array>
#include <cmath>

namespace toolkit {

namespace {

using platform::Volume;

constexpr QSize kSize(76, 24);
constexpr double kSignEnd = 29;
constexpr double kLevelStart = 36;
constexpr double kLevelEnd = 66;
constexpr double kMiddle = 11;

/// A slider that can be pressed as well, which mutes.
class AccessibleVolume : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleVolume(VolumeBox* box) : QAccessibleWidget(box, QAccessible::Slider) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? Volume::Get().Words() : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override {
        return QAccessibleWidget::actionNames() << pressAction();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            static_cast<VolumeBox*>(widget())->Activate();
        else
            QAccessibleWidget::doAction(action);
    }

    QVariant currentValue() const override { return platform::HeardVolume(); }
    void setCurrentValue(const QVariant& value) override {
        Volume::Get().SetPercent(value.toInt());
    }
    QVariant maximumValue() const override { return 100; }
    QVariant minimumValue() const override { return 0; }
    QVariant minimumStepSize() const override { return Volume::kStep; }
};

/// The speaker with waves for what is heard, or crossed out.
void PaintSign(QPainter& painter, const QColor& color, int heard) {
    QPainterPath speaker;
    speaker.addPolygon(QPolygonF({{9, 8.7}, {12, 8.7}, {16, 5}, {16, 17}, {12, 13.3}, {9, 13.3}}));
    speaker.closeSubpath();
    painter.setPen(Qt::NoPen);
    painter.fillPath(speaker, color);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap));
    if (heard == 0) {
        painter.drawLine(QLineF(19.5, 8.5, 24.5, 13.5));
        painter.drawLine(QLineF(19.5, 13.5, 24.5, 8.5));
        return;
    }
    constexpr int kFrom = -45 * 16; // sixteenths of a degree
    constexpr int kWide = 90 * 16;
    painter.drawArc(QRectF(12.5, kMiddle - 4, 8, 8), kFrom, kWide);
    if (heard > 50)
        painter.drawArc(QRectF(10, kMiddle - 7.5, 15, 15), kFrom, kWide);
}

/// The level with a knob at its end, quieter while it is not heard.
void PaintLevel(QPainter& painter, const QColor& color, int percent) {
    const QPointF start(kLevelStart, kMiddle);
    const QPointF end(kLevelEnd, kMiddle);
    const QPointF knob = start + (end - start) * percent / 100;
    painter.setPen(QPen(ToQColor(kField), 4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(start, end);
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(start, knob);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(knob, 4, 4);
}

} // namespace

VolumeBox::VolumeBox(QWidget* form) : PictureBox(form, QStringLiteral("pVolume"), kSize) {
    setAccessibleName(QStringLiteral("Volume"));
    setToolTip(QStringLiteral("Volume: + and -\nMute: M"));
    SetButton(kSize.height() / 2.0);
    Volume& volume = Volume::Get();
    connect(&volume, &Volume::Changed, this, &VolumeBox::Changed);
    connect(this, &PictureBox::Activated, &volume, &Volume::ToggleMuted);
    connect(this, &PictureBox::KeyDown, this, [this] { Show(Pressed); });
    connect(this, &PictureBox::KeyUp, this, [this] { Show(Normal); });
    connect(this, &PictureBox::MouseMoved, this, [this] {
        if (mLook == Normal)
            Show(Hover);
    });
    connect(this, &PictureBox::MouseOutside, this, [this] {
        if (mGrip == Grip::None || !isVisible())
            Show(Normal);
    });
}

QAccessibleInterface* VolumeBox::NewInterface() { return new AccessibleVolume(this); }

void VolumeBox::LoadSkin() {
    auto skin = toolkit::LoadSkin(QStringLiteral("Images\\bVolume.bmp"));
    if (skin.size != QSize(kSize.width(), 3 * kSize.height()))
        skin = PlainSkin(kSize); // the sign and the level would not fit
    mSkin.CreateSprite(skin);
}

void VolumeBox::Draw() {
    if (mSkin.Count() == 0)
        LoadSkin();
    constexpr std::array kColors = {Rgb(204, 212, 255), kWhite, Rgb(255, 154, 212)}; // of the looks
    CopyFormBehind(*this);
    DrawMasked(Dc(), 0, 0, Width(), Height(), mSkin.HDC(1), mSkin.HDC(0), 0, Height() * mLook);
    const QColor color = ToQColor(kColors[mLook]);
    const int heard = platform::HeardVolume();
    const int percent = Volume::Get().Percent();
    const QColor level = heard > 0 ? color : ToQColor(kGreyText);
    Drawing(Dc()).Shapes(QRect(QPoint(0, 0), kSize), [=](QPainter& painter) {
        PaintSign(painter, color, heard);
        PaintLevel(painter, level, percent);
    });
    Refresh();
}

void VolumeBox::Show(Look look) {
    mLook = look;
    Draw();
}

void VolumeBox::Changed() {
    if (mSkin.Count() == 0)
        return; // it has never been drawn
    Draw();
    QAccessibleValueChangeEvent event(this, platform::HeardVolume());
    QAccessible::updateAccessibility(&event);
}

void VolumeBox::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    mGrip = ToLogical(event->position()).x() < kSignEnd ? Grip::Sign : Grip::Level;
    if (mGrip == Grip::Sign)
        Show(Pressed);
    mouseMoveEvent(event);
}

void VolumeBox::mouseMoveEvent(QMouseEvent* event) {
    if (mGrip != Grip::Level)
        return PictureBox::mouseMoveEvent(event);
    const double way = ToLogical(event->position()).x() - kLevelStart;
    const double percent = 100 * way / (kLevelEnd - kLevelStart);
    Volume::Get().SetPercent(static_cast<int>(std::lround(percent)));
}

void VolumeBox::mouseReleaseEvent(QMouseEvent* event) {
    const QPointF at = ToLogical(event->position());
    const bool within = QRectF(0, 0, Width(), Height()).contains(at);
    const Grip held = std::exchange(mGrip, Grip::None);
    Show(within ? Hover : Normal);
    if (held == Grip::Sign && within && at.x() < kSignEnd)
        Volume::Get().ToggleMuted();
}

void VolumeBox::wheelEvent(QWheelEvent* event) {
    constexpr int kNotch = 120; // finer wheels count less at a time
    mTurned += event->angleDelta().y();
    for (; mTurned >= kNotch; mTurned -= kNotch)
        Volume::Get().Step(1);
    for (; mTurned <= -kNotch; mTurned += kNotch)
        Volume::Get().Step(-1);
}

void VolumeBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right)
        Volume::Get().Step(event->key() == Qt::Key_Right ? 1 : -1);
    else
        PictureBox::keyPressEvent(event);
}

} // namespace toolkit
