#include "platform/WindowSize.h"
#include "platform/Settings.h"

#include <QSize>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

using Sizes = std::vector<int>;

constexpr QSize kWindow(800, 600);

TEST(WindowSizes, AreThoseThatFitTheScreen) {
    const struct {
        QSize available;
        Sizes sizes;
        int byItself;
    } screens[] = {
        {{640, 480}, {100}, 100},
        {{1366, 730}, {100}, 100},
        {{1920, 1040}, {100, 150}, 100},
        {{1920, 899}, {100}, 100},
        {{1200, 900}, {100, 150}, 100},
        {{2560, 1400}, {100, 150, 200}, 100},
        {{1599, 2100}, {100, 150}, 150},
        {{3840, 1999}, {100, 150, 200, 300}, 100},
        {{3840, 2000}, {100, 150, 200, 300}, 200},
    };
    for (const auto& screen : screens) {
        SCOPED_TRACE(testing::Message()
                     << screen.available.width() << " x " << screen.available.height());
        EXPECT_EQ(platform::SizesThatFit(kWindow, screen.available), screen.sizes);
        EXPECT_EQ(platform::StartSize(kWindow, screen.available, 0), screen.byItself);
        for (const int chosen : {100, 150, 200, 300})
            EXPECT_EQ(platform::StartSize(kWindow, screen.available, chosen),
                      std::min(chosen, screen.sizes.back()));
    }
    EXPECT_EQ(platform::StartSize(kWindow, {3840, 2160}, 170), 200) << "no size of ours";
}

/// A start of the program on the tests' screen, which has room for 800 x 800 pixels.
class Starts : public testing::Test {
protected:
    ~Starts() override {
        qunsetenv("QT_SCALE_FACTOR");
        qunsetenv("SONGRUSH_START");
        Write("LastSize", QString());
        Write("Size", QString());
        platform::ApplyWindowSize();
    }

    static void Write(const char* key, const QString& value) {
        platform::WriteSetting("Songrush", "Window", key, value);
    }
    static QString Read(const char* key) {
        return platform::ReadSetting("Songrush", "Window", key, QString());
    }
};

TEST_F(Starts, BeginWithTheSizeOfTheLastOne) {
    Write("LastSize", "150");
    platform::ApplyWindowSize();
    EXPECT_EQ(qgetenv("QT_SCALE_FACTOR"), "1.5");
    EXPECT_EQ(platform::WindowSize(), 150);
    platform::KeepWindowSize();
    EXPECT_EQ(Read("LastSize"), "150");
}

TEST_F(Starts, AreMadeAnewForAnotherSize) {
    QWidget window;
    window.setFixedSize(400, 300);
    platform::ApplyWindowSize();
    EXPECT_TRUE(platform::CheckWindowSize(window.size()));
    EXPECT_EQ(platform::WindowSizes(window), (Sizes{100, 150, 200}));
    EXPECT_FALSE(platform::ChooseWindowSize(100, window));
    EXPECT_FALSE(platform::NewStartWanted());
    window.move(300, 400);
    EXPECT_TRUE(platform::ChooseWindowSize(200, window));
    EXPECT_TRUE(platform::NewStartWanted());
    EXPECT_EQ(Read("Size"), "200");

    platform::ApplyWindowSize(); // of the new start
    EXPECT_EQ(platform::WindowSize(), 200);
    EXPECT_EQ(platform::StartPlace(), QPoint(0, 100)) << "where all of the window is on the screen";
    EXPECT_TRUE(platform::CheckWindowSize(window.size())) << "no third start";
    EXPECT_FALSE(qEnvironmentVariableIsSet("QT_SCALE_FACTOR")) << "meant for this program alone";
    platform::KeepWindowSize();
    EXPECT_EQ(Read("LastSize"), "200");
}

TEST_F(Starts, LeaveTheScaleThatTheUserSet) {
    qputenv("QT_SCALE_FACTOR", "1.25");
    Write("LastSize", "150");
    platform::ApplyWindowSize();
    QWidget window;
    window.setFixedSize(80, 60);
    EXPECT_EQ(qgetenv("QT_SCALE_FACTOR"), "1.25");
    EXPECT_TRUE(platform::CheckWindowSize(window.size()));
    EXPECT_EQ(platform::WindowSizes(window), Sizes());
    platform::KeepWindowSize();
    EXPECT_EQ(Read("LastSize"), "150");
}

} // namespace
