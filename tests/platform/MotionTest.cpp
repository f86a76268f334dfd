#include "platform/DesktopMotion.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <tuple>

namespace {

using platform::PortalSettings;

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
