#include "toolkit/MessagePanel.h"

#include "platform/Wait.h"
#include "toolkit/Drawing.h"
#include "toolkit/MessageSign.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

namespace toolkit {

namespace {

constexpr int kMargin = 22;
constexpr int kTitleBottom = 44;
constexpr QSize kButton(108, 36);
constexpr int kButtonGap = 12;
constexpr ColorRef kRule = Rgb(62, 68, 170);

/// Where the parts of a panel lie.
struct Parts {
    QString text; // as much as there is room for
    QRect sign;
    QRect words;
    QSize panel;
};

QSize SizeOf(const QString& text) {
    constexpr int kWidest = 620;
    const QFontMetrics metrics(RoundFont(kControlFont));
    const QSize size = metrics.boundingRect(QRect(0, 0, kWidest, 0), Qt::TextWordWrap, text).size();
    return size + QSize(size.width() / 20 + 4, 4); // lines are wider at some sizes of the stage
}

/// With an ellipsis in place of the lines for which there is no room.
QString Shortened(const QString& text) {
    constexpr int kHighest = 400;
    QStringList lines = text.split(u'\n');
    while (lines.size() > 1 && SizeOf(lines.join(u'\n')).height() > kHighest) {
        lines.removeLast();
        lines.back() = QStringLiteral("…");
    }
    return lines.join(u'\n');
}

Parts PartsOf(const platform::Message& message) {
    constexpr int kNarrowest = 300;
    Parts parts;
    parts.text = Shortened(message.text);
    const bool hasSign = message.icon != platform::Icon::None;
    parts.sign = QRect(kMargin, kTitleBottom + 10, hasSign ? kMessageSign : 0, kMessageSign);
    const auto buttons = static_cast<int>(message.buttons.size());
    const int row = buttons * (kButton.width() + kButtonGap) - kButtonGap + 2 * kMargin;
    const int left = hasSign ? parts.sign.right() + 1 + kMargin : kMargin;
    const QSize words = SizeOf(parts.text).expandedTo(QSize(0, kMessageSign));
    parts.words = QRect(QPoint(left, parts.sign.y()), words);
    parts.panel = QSize(std::max({parts.words.right() + 1 + kMargin, kNarrowest, row}),
                        parts.words.bottom() + 1 + kMargin + kButton.height() + kMargin);
    return parts;
}

void DrawTitle(Hdc dc, const QString& title) {
    dc->SetFont(RoundFont(kControlFont, true));
    Drawing drawing(dc);
    drawing.Text(title, kNightText, kBlack, kMargin, (kTitleBottom - dc->TextHeight()) / 2, 1);
    drawing.Fill(kRule, kMargin, kTitleBottom - 1, dc->Width() - kMargin, kTitleBottom);
}

} // namespace

MessagePanel::MessagePanel(const platform::Message& message)
    : Form(QStringLiteral("MessagePanel"), PartsOf(message).panel), mMessage(message) {
    const Parts parts = PartsOf(message);
    setWindowTitle(message.title);
    SetLayer(Layer::Messages);
    SetModal();
    DrawPanel(Dc());
    DrawTitle(Dc(), message.title);
    Drawing(Dc()).Shapes(parts.sign,
                         [at = parts.sign.topLeft(), icon = message.icon](QPainter& painter) {
                             painter.translate(at);
                             PaintMessageSign(painter, icon);
                         });
    auto* words = new QLabel(parts.text, this);
    words->setTextFormat(Qt::PlainText); // file names must not be taken for markup
    words->setWordWrap(true);
    Put(*words, parts.words);
    for (const QString& text : message.buttons)
        AddButton(text);
    const auto count = static_cast<int>(mButtons.size());
    int left = (Width() - count * kButton.width() - (count - 1) * kButtonGap) / 2;
    for (QPushButton* button : mButtons) {
        Put(*button, QRect(QPoint(left, Height() - kMargin - kButton.height()), kButton));
        left += kButton.width() + kButtonGap;
    }
    mAnswer = count - 1;
    connect(this, &Form::CloseRequested, this, [this, last = mAnswer] { Answer(last); });
}

void MessagePanel::AddButton(const QString& text) {
    auto* button = new QPushButton(text, this);
    button->setAccessibleName(QString(text).remove(u'&'));
    button->setAutoDefault(true); // Enter presses the one that has the focus
    const auto number = static_cast<int>(mButtons.size());
    connect(button, &QPushButton::clicked, this, [this, number] { Answer(number); });
    mButtons.push_back(button);
}

int MessagePanel::Ask() {
    mOpen = true;
    Announce(mMessage.text);
    ShowInPlace();
    platform::WaitWhile([this] { return mOpen; });
    return mAnswer;
}

void MessagePanel::Answer(int button) {
    mAnswer = button;
    mOpen = false;
    hide();
}

void MessagePanel::keyPressEvent(QKeyEvent* event) {
    const auto pressed = std::ranges::find_if(mButtons, [event](const QPushButton* button) {
        return !event->text().isEmpty() &&
               button->accessibleName().startsWith(event->text(), Qt::CaseInsensitive);
    });
    if (pressed != mButtons.end())
        (*pressed)->click();
    else
        Form::keyPressEvent(event);
}

} // namespace toolkit
