#include "toolkit/Stage.h"
#include "platform/Motion.h"
#include "tests/OnStage.h"
#include "toolkit/Form.h"

#include <QGraphicsEffect>
#include <QLineEdit>
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
    for (const auto& [rule, last, screens, place] : cases) {
        EXPECT_EQ(StartPlace(last, screens), place) << rule;
        EXPECT_EQ(PlaceFromText(TextFromPlace(place)), place) << "as the settings keep it";
    }
    EXPECT_FALSE(PlaceFromText("x 0 800 600"));
}

/// The stage with a form on it.
class Stages : public testing::Test {
protected:
    Stages() {
        Put(mText, QRect(100, 20, 200, 30));
        SetFontPoints(mText, 12);
        mForm.Dc()->Fill(QRect(0, 0, 800, 600), Rgb(9, 90, 9));
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
};

TEST_F(Stages, ShowEverythingAsLargeAsTheWindowIs) {
    const std::pair<QSize, QRect> cases[] = {{{800, 900}, {0, 150, 800, 600}},
                                             {{400, 300}, {0, 0, 400, 300}}};
    for (const auto& [window, form] : cases) {
        Resize(window);
        EXPECT_EQ(QRect(mForm.mapTo(&mStage, QPoint(0, 0)), mForm.size()), form);
        EXPECT_EQ(mForm.Dc()->Image().size(), form.size()) << "not sharp";
        EXPECT_EQ(mText.size(), QSize(200, 30) * form.width() / 800);
        EXPECT_EQ(mText.font().pixelSize(), 16 * form.width() / 800);
        EXPECT_EQ(PlaceOf(mText), QRect(100, 20, 200, 30));
    }
}

TEST_F(Stages, FadeToTheNextScreenWhichCanBePressedAtOnce) {
    Form next("f_Next");
    next.Dc()->Fill(QRect(0, 0, 800, 600), Rgb(200, 0, 0));
    const auto seen = [this] { return mStage.grab().toImage().pixelColor(10, 10); };
    const auto still = [this] { return mStage.Area().graphicsEffect() == nullptr; };
    for (const bool reduced : {false, true}) {
        mForm.ShowInPlace();
        ASSERT_TRUE(QTest::qWaitFor(still));
        const auto before = platform::ReplaceMotionWish([reduced] { return reduced; });
        mForm.hide();
        next.ShowInPlace();
        EXPECT_EQ(seen(), reduced ? QColor(200, 0, 0) : QColor(9, 90, 9));
        EXPECT_EQ(mStage.childAt(10, 10), &next);
        next.hide();
        platform::ReplaceMotionWish(before);
    }
}

TEST_F(Stages, KeepTheWindowsShapeWhenItsEdgeIsLetGo) {
    EXPECT_EQ(mStage.windowTitle(), "Songrush");
    const QPoint corner(mStage.width() - 2, mStage.height() - 2);
    Drag(corner, corner - QPoint(0, 150));
    EXPECT_EQ(mStage.size(), QSize(600, 450));
}

TEST_F(Stages, ObeyTheirKeysOnEveryScreen) {
    const QSize full = mStage.screen()->size();
    const std::pair<QKeyCombination, QSize> keys[] = {{Qt::ALT | Qt::Key_Return, full},
                                                      {Qt::Key_F11, {400, 300}},
                                                      {Qt::CTRL | Qt::Key_Plus, kStageSize},
                                                      {Qt::CTRL | Qt::Key_0, kStageSize}};
    mText.setFocus();
    for (const auto& [key, size] : keys) {
        if (mStage.size() != full)
            Resize(QSize(400, 300));
        QTest::keyClick(StageWindow(), key.key(), key.keyboardModifiers());
        EXPECT_TRUE(QTest::qWaitFor([&, size = size] { return mStage.size() == size; }))
            << key.key();
    }
    EXPECT_EQ(mText.text(), QString());
}

} // namespace
