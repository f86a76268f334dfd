#pragma once

#include "toolkit/Accessible.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <vector>

class QLabel;

namespace toolkit {

/// Tells screen readers what a form shows by drawing: captions, which can be read in place and are
/// announced as they appear, and any other announcements. Whatever arrives before events run again
/// becomes one announcement, made as soon as the form can be used. Nothing here is visible.
class Announcer : public QWidget, public Accessible {
    Q_OBJECT
public:
    explicit Announcer(QWidget* form);

    /// Notes that a text was drawn at `place`, in logical pixels of the form, instead of any that
    /// was drawn at exactly this place before. It is announced unless it was already there at the
    /// last announcement.
    void AddCaption(const QString& text, const QRect& place);

    /// The same for a text that is not worth an announcement; it can only be read in place.
    void AddQuietCaption(const QString& text, const QRect& place);

    /// Announces none of the captions that are waiting for it. They can be read in place, and are
    /// announced if they are added again.
    void HoldCaptions() { mCaptions.clear(); }

    /// Notes that all captions were painted over.
    void ClearCaptions();

    /// Announces a text, after any captions that go into the same announcement.
    void Announce(const QString& text);

    QAccessibleInterface* NewInterface() override;
    bool eventFilter(QObject* form, QEvent* event) override;

private:
    QLabel* LabelFor(const QRect& place);
    QStringList TakeNews();
    void Speak();

    std::vector<QLabel*> mLabels; // of captions; unused ones are hidden
    std::size_t mUsed = 0;
    QStringList mCaptions; // to be announced
    QStringList mKnown;    // the captions of the last announcement
    QStringList mTexts;
    QTimer mSoon;
};

} // namespace toolkit
