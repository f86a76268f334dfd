#include "toolkit/Announcer.h"
#include "toolkit/Form.h"

#include <QLabel>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

/// A form, and what a screen reader hears and finds on it.
class Announcements : public testing::Test {
protected:
    static void Show(Form& form) {
        form.ShowInPlace();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    /// What was announced since the last time.
    QString Heard() {
        auto* announcer = mForm.findChild<Announcer*>();
        QTest::qWait(20);
        const QString text = announcer->isVisible() ? announcer->accessibleName() : QString();
        announcer->setAccessibleName(QString());
        return text;
    }

    QStringList Readable() {
        QStringList texts;
        for (const QLabel* label : mForm.findChildren<QLabel*>())
            if (label->isVisible())
                texts << label->text();
        return texts;
    }

    void Caption(const char* text) { mForm.AddCaption(text, QRect(0, 0, 100, 20)); }

    Form mForm{QStringLiteral("f_Test"), QSize(200, 100)};
};

TEST_F(Announcements, TellInOneGoWhatIsNew) {
    Caption("Round 1");
    Caption("Which?");
    mForm.Announce("1: One");
    EXPECT_EQ(Heard(), "") << "nobody looks at the form yet";
    Show(mForm);
    EXPECT_EQ(Heard(), "Round 1. Which? 1: One.");
    mForm.ClearCaptions();
    Caption("Round 1");
    Caption("You are right!");
    mForm.AddQuietCaption("Makers", QRect(0, 50, 100, 20));
    EXPECT_EQ(Heard(), "You are right!");
    EXPECT_EQ(Readable(), (QStringList{"Round 1", "You are right!", "Makers"}));
}

TEST_F(Announcements, OfAHiddenFormAreForgotten) {
    Show(mForm);
    Caption("Round 1");
    mForm.Announce("1: One");
    mForm.hide();
    Form other(QStringLiteral("f_Other"), QSize(100, 100));
    Show(other);
    mForm.ClearCaptions();
    Caption("Round 1");
    Show(mForm);
    EXPECT_EQ(Heard(), "Round 1.") << "the form is seen anew";
    mForm.ClearCaptions();
    EXPECT_EQ(Heard(), "");
    EXPECT_EQ(Readable(), QStringList());
}

} // namespace
