#include "toolkit/Stage.h"
#include "platform/Motion.h"
#include "tests/OnStage.h"
#include "tests/toolkit/Pictures.h"
#include "toolkit/Form.h"
#include "toolkit/MessagePanel.h"
#include "toolkit/Mous.h"

#include <QGraphicsEffect>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace {

using namespace toolkit;

const QRect kScreen(0, 30, 1920, 1050);
const QRect kSecond(1920, 0, 1280, 1024);

TEST(StageSize, TheWindowComesUpWhereItWasOnTheScreensThatThereAre) {
    using Last = std::optional<QRect>;
    const std::tuple<const char*, Last, std::vector<QRect>, QRect> cases[] = {
        {"first start", {}, {kScreen}, {460, 180, 1000, 750}},
        {"first start, large screen", {}, {{0, 0, 3840, 2160}}, {720, 180, 2400, 1800}},
        {"first start, small screen", {}, {{0, 0, 640, 480}}, {0, 0, 640, 480}},
        {"first start, low screen", {}, {{0, 0, 1024, 600}}, {112, 0, 800, 600}},
        {"as it was", QRect(2000, 100, 1000, 750), {kScreen, kSecond}, {2000, 100, 1000, 750}},
        {"its screen is gone", QRect(2000, 100, 1000, 750), {kScreen}, {460, 180, 1000, 750}},
        {"partly outside", QRect(-80, 5, 800, 600), {kScreen}, {0, 30, 800, 600}},
        {"its screen is smaller", QRect(0, 0, 1600, 1200), {{0, 0, 1024, 768}}, {0, 0, 1024, 768}},
    };
    for (const auto& [rule, last, screens, place] : cases)
        EXPECT_EQ(StartPlace(last, screens), place) << rule;
}

/// The stage with a form on it.
class Stages : public testing::Test {
protected:
    Stages() {
        Put(mText, QRect(100, 20, 200, 30));
        SetFontPoints(mText, 12);
        mForm.Dc()->Fill(QRect(0, 0, 800, 600), Rgb(9, 90, 9));
        mForm.Dc()->Fill(QRect(400, 300, 40, 20), kWhite);
        mBox.MoveTo(400, 300);
        mForm.ShowInPlace();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&mStage));
    }
    ~Stages() override {
        mStage.SetFullScreen(false);
        mStage.resize(kStageSize);
        QCoreApplication::processEvents();
    }

    void Resize(const QSize& size) {
        mStage.resize(size);
        EXPECT_TRUE(QTest::qWaitFor([&] { return mStage.size() == size; }));
    }

    Stage& mStage = Stage::Get();
    Form mForm{"f_Test"};
    QLineEdit mText{&mForm};
    PictureBox mBox{&mForm, "pTest", QSize(40, 20)};
};

TEST_F(Stages, ShowEverythingAsLargeAsTheWindowIs) {
    const std::tuple<QSize, QRect, QRect> cases[] = {
        {{1200, 900}, {0, 0, 1200, 900}, {600, 450, 60, 30}},
        {{1000, 600}, {100, 0, 800, 600}, {400, 300, 40, 20}},
        {{800, 900}, {0, 150, 800, 600}, {400, 300, 40, 20}},
        {{500, 375}, {0, 0, 500, 375}, {250, 188, 25, 12}},
        {{800, 600}, {0, 0, 800, 600}, {400, 300, 40, 20}}};
    constexpr int kFontAtFullSize = 16;
    for (const auto& [window, form, box] : cases) {
        Resize(window);
        EXPECT_EQ(QRect(mForm.mapTo(&mStage, QPoint(0, 0)), mForm.size()), form);
        EXPECT_EQ(mBox.geometry(), box);
        EXPECT_EQ(mText.font().pixelSize(), qRound(kFontAtFullSize * form.width() / 800.0));
        EXPECT_EQ(mForm.Dc()->Image().size(), form.size()) << "not sharp";
        const QImage shown = mForm.grab().toImage();
        EXPECT_EQ(shown.pixelColor(box.center() + QPoint(-box.width(), 0)), QColor(9, 90, 9));
        EXPECT_EQ(mBox.Place(), QRect(400, 300, 40, 20));
    }
}

TEST_F(Stages, FadeFromScreenToScreenUnlessLessMotionIsWanted) {
    const QRect all(QPoint(0, 0), kStageSize);
    mForm.Dc()->Fill(all, Rgb(9, 90, 9));
    Form next("f_Next");
    next.Dc()->Fill(all, Rgb(200, 0, 0));
    const auto seen = [this] { return mStage.grab().toImage().pixelColor(10, 10); };
    const auto still = [this] { return mStage.Area().graphicsEffect() == nullptr; };
    for (const bool reduced : {false, true}) {
        mForm.ShowInPlace();
        ASSERT_TRUE(QTest::qWaitFor(still));
        const auto before = platform::ReplaceMotionWish([reduced] { return reduced; });
        mForm.hide();
        next.ShowInPlace();
        EXPECT_EQ(seen(), reduced ? QColor(200, 0, 0) : QColor(9, 90, 9));
        EXPECT_EQ(mStage.childAt(10, 10), &next) << "it can be pressed at once";
        EXPECT_TRUE(QTest::qWaitFor(still));
        EXPECT_EQ(seen(), QColor(200, 0, 0));
        next.hide();
        platform::ReplaceMotionWish(before);
    }
}

TEST_F(Stages, KeepTheWindowsShapeWhenItsEdgeIsLetGo) {
    const QPoint corner(mStage.width() - 2, mStage.height() - 2);
    const auto move = [this](QPoint to) {
        QCursor::setPos(mStage.mapToGlobal(to));
        QTest::mouseMove(StageWindow(), to);
    };
    move(corner);
    QTest::mousePress(StageWindow(), Qt::LeftButton, {}, corner);
    move(corner - QPoint(0, 150));
    EXPECT_EQ(mStage.size(), QSize(800, 450)) << "letterboxed meanwhile";
    QTest::mouseRelease(StageWindow(), Qt::LeftButton, {}, corner - QPoint(0, 150));
    EXPECT_EQ(mStage.size(), QSize(600, 450));
}

TEST_F(Stages, ObeyTheirKeysOnEveryScreen) {
    const QSize full = mStage.screen()->size();
    const std::pair<QKeyCombination, QSize> keys[] = {{Qt::Key_F11, full},
                                                      {Qt::ALT | Qt::Key_Return, {400, 300}},
                                                      {Qt::CTRL | Qt::Key_Plus, kStageSize},
                                                      {Qt::CTRL | Qt::Key_0, kStageSize}};
    mText.setFocus();
    for (const auto& [key, size] : keys) {
        if (mStage.size() != full)
            Resize(QSize(400, 300));
        QTest::keyClick(StageWindow(), key.key(), key.keyboardModifiers());
        EXPECT_TRUE(QTest::qWaitFor([&, size = size] { return mStage.size() == size; }))
            << key.key();
        QTest::qWait(500); // beyond a double press
    }
    EXPECT_EQ(mText.text(), QString());
}

TEST_F(Stages, ShowMessagesInFrontAndAnswerThemByKeys) {
    const platform::Message question{"Go on?", platform::Icon::Warning, "Songrush",
                                     QStringList{"&Yes", "&No", "&Cancel"}};
    const std::pair<Qt::Key, int> cases[] = {
        {Qt::Key_Return, 0}, {Qt::Key_Y, 0}, {Qt::Key_N, 1}, {Qt::Key_C, 2}, {Qt::Key_Escape, 2}};
    mText.setFocus();
    for (const auto& [key, button] : cases) {
        QTimer::singleShot(0, &mStage, [this, which = key] {
            EXPECT_FALSE(mBox.TakesInput());
            QTest::keyClick(StageWindow(), which);
        });
        EXPECT_EQ(MessagePanel(question).Ask(), button) << key;
        EXPECT_TRUE(mText.hasFocus());
        QTest::qWait(500); // beyond a double press
    }
}

} // namespace
