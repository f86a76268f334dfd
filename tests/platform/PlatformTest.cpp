#include "platform/DesktopMotion.h"
#include "platform/Message.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "platform/Volume.h"
#include "platform/Wait.h"
#include "tests/FileSizeLimit.h"
#include "tests/Quit.h"
#include "tests/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <sys/stat.h>
#include <tuple>

namespace {

namespace fs = std::filesystem;
using platform::PortalSettings;
using platform::Volume;

TEST(Settings, PathsAndTextsComeBackFromDiskAsTheyWere) {
    for (const fs::path path :
         {"/music", "/m/caf\xE9", "/m/caf\xC3\xA9", "@/a, b;c=\"d\" %41\\n ", ""}) {
        platform::WritePathSetting("RoundTrip", "Dirs", "Path", path);
        platform::WriteSetting("RoundTrip", "Dirs", "Text", "@1, \u00E4 ");
        // A changed file is read again.
        QFile store(QSettings("Songrush", "RoundTrip").fileName());
        ASSERT_TRUE(store.open(QIODevice::Append) && store.write("\n") == 1);
        store.close();
        EXPECT_EQ(platform::ReadPathSetting("RoundTrip", "Dirs", "Path", "none"), path);
        EXPECT_EQ(platform::ReadSetting("RoundTrip", "Dirs", "Text", ""), "@1, \u00E4 ");
    }
}

TEST(Settings, AStoreThatIsNoFileHasNothingAndIsNeverWaitedFor) {
    const QString store = QSettings("Songrush", "Pipe").fileName();
    QDir().mkpath(QFileInfo(store).path());
    ASSERT_EQ(mkfifo(QFile::encodeName(store), 0600), 0);
    platform::WriteSetting("Pipe", "Dirs", "Text", "new");
    EXPECT_EQ(platform::ReadSetting("Pipe", "Dirs", "Text", "none"), "none");
}

TEST(Settings, StayAsTheyWereOnAFullDisk) {
    platform::WriteSetting("Full", "Dirs", "Text", "old");
    {
        const FileSizeLimit limit(4);
        platform::WriteSetting("Full", "Dirs", "Text", "new");
    }
    EXPECT_EQ(platform::ReadSetting("Full", "Dirs", "Text", "none"), "old");
}

TEST(Text, AllBytesOfWindows1252ComeBackAndWhatItLacksIsAQuestionMark) {
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    const QString text = platform::TextFromWindows1252({all.constData(), 256});
    EXPECT_EQ(text.mid(0x9E, 2), QStringLiteral("žŸ"));
    EXPECT_EQ(platform::Windows1252FromText(text), all);
    EXPECT_EQ(platform::Windows1252FromText(QStringLiteral("aЖ🎵é")), "a??\xE9");
}

TEST(Wait, NestedAndLaterOnesEndAfterAQuitAndQuestionsAreAnsweredWithNo) {
    const auto forever = [] { return true; };
    platform::SetMessageBox([](const platform::Message&) {
        ADD_FAILURE() << "shown";
        return 0;
    });
    const auto endSession = [] { QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit)); };
    const std::function<void()> quits[] = {platform::RequestQuit, endSession};
    for (const auto& quit : quits) {
        const platform::QuitWatch watch;
        EXPECT_FALSE(platform::Quitting());
        QTimer::singleShot(0, qApp, [&] {
            QTimer::singleShot(1, qApp, quit);
            platform::WaitWhile(forever);
        });
        platform::WaitWhile(forever);
        platform::WaitWhile(forever);
        EXPECT_TRUE(platform::Quitting());
        platform::ShowMessage("a message");
        EXPECT_FALSE(platform::AskYesNo("a question"));
    }
    ForgetQuit();
}

TEST(Volume, GoesInStepsAndFromMutedToSomething) {
    Volume& volume = Volume::Get();
    const struct {
        int from;
        const char* keys; // + and - for steps, m for muting
        int heard;
    } cases[] = {{70, "+", 80},   {73, "+", 80},  {73, "-", 70}, {70, "-", 60},
                 {100, "+", 100}, {0, "-", 0},    {5, "-", 0},   {50, "m", 0},
                 {50, "m+", 60},  {50, "mm", 50}, {0, "m", 10}};
    for (const auto& c : cases) {
        volume.SetPercent(c.from);
        for (const char key : std::string_view(c.keys))
            key == 'm' ? volume.ToggleMuted() : volume.Step(key == '+' ? 1 : -1);
        EXPECT_EQ(platform::HeardVolume(), c.heard) << c.keys << " from " << c.from;
    }
}

TEST(Volume, IsRememberedMutedOrNot) {
    Volume& volume = Volume::Get();
    volume.SetPercent(90);
    volume.Recall();
    EXPECT_EQ(volume.Words(), "100 %") << "without a run before";
    for (const bool muted : {true, false}) {
        volume.SetPercent(40);
        if (muted)
            volume.ToggleMuted();
        volume.Remember();
        volume.SetPercent(90);
        volume.Recall();
        EXPECT_EQ(volume.Percent(), 40);
        EXPECT_EQ(volume.Muted(), muted);
        EXPECT_EQ(volume.Words(), muted ? "Muted" : "40 %");
    }
}

TEST(Motion, IsReducedWhereAnyDesktopSaysSo) {
    const QString gnome = "org.gnome.desktop.interface";
    const QString kde = "org.kde.kdeglobals.KDE";
    const QString common = "org.freedesktop.appearance";
    const std::pair<PortalSettings, std::optional<bool>> answers[] = {
        {{}, std::nullopt},
        {{{gnome, {{"color-scheme", 0U}}}}, std::nullopt},
        {{{gnome, {{"enable-animations", true}}}}, false},
        {{{kde, {{"AnimationDurationFactor", "0"}}}}, true},
        {{{kde, {{"AnimationDurationFactor", "0.5"}}}}, false},
        {{{kde, {{"AnimationDurationFactor", ""}}}}, std::nullopt},
        {{{common, {{"reduced-motion", 1U}}}, {gnome, {{"enable-animations", true}}}}, true},
        {{{common, {{"reduced-motion", 0U}}}, {gnome, {{"enable-animations", false}}}}, true},
    };
    int number = 0;
    for (const auto& [settings, reduced] : answers)
        EXPECT_EQ(platform::MotionReducedInPortal(settings), reduced) << ++number;
}

TEST(Motion, IsReducedByTheFilesOfTheDesktops) {
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"gtk-3.0/settings.ini", "[Settings]\ngtk-enable-animations=false\n", true},
        {"gtk-4.0/settings.ini", "[Settings]\ngtk-theme-name=A\ngtk-enable-animations = 0\n", true},
        {"gtk-3.0/settings.ini", "[Settings]\ngtk-enable-animations=1\n", false},
        {"kdeglobals", "[KDE]\nAnimationDurationFactor=0\n", true},
        {"kdeglobals", "[KDE]\nAnimationDurationFactor=1.5\n", false},
        {"kdeglobals", "[General]\nAnimationDurationFactor=0\n", false},
    };
    for (const auto& [file, text, reduced] : cases) {
        const TemporaryFolder folder;
        folder.Write(file, text);
        EXPECT_EQ(platform::MotionReducedInFiles(folder.Path()), reduced) << text;
    }
}

} // namespace
