#pragma once

#include "toolkit/Accessible.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <vector>

class QLabel;

namespace toolkit {

/// Tells screen readers what a form shows by drawing: captions, which can be read where they are
/// and are announced as they appear, and what else is to be announced. All that comes in one go is
/// one announcement, made as soon as the form is the active window. Nothing of it can be seen.
class Announcer : public QWidget, public Accessible {
    Q_OBJECT
public:
    explicit Announcer(QWidget* form);

    /// A text was drawn at `place`, in logical pixels of the form. It is announced unless it was
    /// already there at the last announcement.
    void AddCaption(const QString& text, const QRect& place);

    /// The same for a text that is not worth an announcement; it can only be read where it is.
    void AddQuietCaption(const QString& text, const QRect& place);

    /// All captions were drawn over.
    void ClearCaptions();

    /// Announces a text after the captions that came in the same go.
    void Announce(const QString& text);

    QAccessibleInterface* NewInterface() override;
    bool eventFilter(QObject* form, QEvent* event) override;

private:
    QLabel* FreeLabel();
    QStringList TakeNews();
    void Speak();

    std::vector<QLabel*> mLabels; // of captions; those left over are hidden
    std::size_t mUsed = 0;
    QStringList mCaptions; // to be announced
    QStringList mKnown;    // the captions of the last announcement
    QStringList mTexts;
    QTimer mSoon;
};

} // namespace toolkit
