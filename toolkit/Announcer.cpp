#include "toolkit/Announcer.h"

#include "toolkit/Place.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QEvent>
#include <QLabel>
#include <utility>

namespace toolkit {

namespace {

/// An invisible label over a drawn text.
class Caption : public QLabel {
public:
    explicit Caption(QWidget* form) : QLabel(form) {
        setTextFormat(Qt::PlainText);
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void paintEvent(QPaintEvent*) override {}
};

/// Joins the texts as sentences, so that there is a pause after each.
QString Sentences(const QStringList& texts) {
    QStringList sentences;
    for (const QString& text : texts)
        sentences << (QStringLiteral(".!?:").contains(text.back()) ? text : text + u'.');
    return sentences.join(u' ');
}

} // namespace

Announcer::Announcer(QWidget* form) : QWidget(form) {
    setObjectName(QStringLiteral("Announcer"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(0, 0);
    hide();
    mSoon.setSingleShot(true);
    connect(&mSoon, &QTimer::timeout, this, &Announcer::Speak);
    form->installEventFilter(this);
}

void Announcer::AddCaption(const QString& text, const QRect& place) {
    if (text.isEmpty())
        return;
    AddQuietCaption(text, place);
    mCaptions << text;
    mSoon.start(0);
}

void Announcer::AddQuietCaption(const QString& text, const QRect& place) {
    if (text.isEmpty())
        return;
    QLabel* label = LabelFor(place);
    label->setText(text);
    Put(*label, place);
    label->show();
}

QLabel* Announcer::LabelFor(const QRect& place) {
    for (std::size_t i = 0; i < mUsed; ++i)
        if (PlaceOf(*mLabels[i]) == place)
            return mLabels[i];
    if (mUsed == mLabels.size())
        mLabels.push_back(new Caption(parentWidget()));
    return mLabels[mUsed++];
}

void Announcer::ClearCaptions() {
    mCaptions.clear();
    for (; mUsed > 0; --mUsed)
        mLabels[mUsed - 1]->hide();
}

void Announcer::Announce(const QString& text) {
    if (text.isEmpty())
        return;
    mTexts << text;
    mSoon.start(0);
}

QAccessibleInterface* Announcer::NewInterface() {
    return new QAccessibleWidget(this, QAccessible::Notification);
}

bool Announcer::eventFilter(QObject*, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::WindowActivate || type == QEvent::Show || type == QEvent::EnabledChange) {
        // After the focus event, which would interrupt the screen reader.
        mSoon.start(0);
    } else if (type == QEvent::Hide) {
        hide();
        mKnown.clear();
        mTexts.clear();
    }
    return false;
}

QStringList Announcer::TakeNews() {
    QStringList news;
    for (const QString& caption : mCaptions)
        if (!mKnown.contains(caption))
            news << caption;
    mKnown = mCaptions;
    return news + std::exchange(mTexts, {});
}

void Announcer::Speak() {
    const QWidget& form = *parentWidget();
    if (!form.isVisible() || !form.isEnabled() || !form.isActiveWindow())
        return;
    const QStringList news = TakeNews();
    if (news.isEmpty())
        return;
    // Screen readers speak a notification when it appears.
    hide();
    setAccessibleName(Sentences(news));
    show();
}

} // namespace toolkit
