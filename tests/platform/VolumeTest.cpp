#include "platform/Volume.h"

#include <QSignalSpy>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace {

using platform::HeardVolume;
using platform::Volume;

TEST(Volume, GoesInStepsAndFromMutedToSomething) {
    Volume& volume = Volume::Get();
    const auto louder = [&volume] { volume.Step(1); };
    const auto quieter = [&volume] { volume.Step(-1); };
    const auto mute = [&volume] { volume.ToggleMuted(); };
    const struct {
        int from;
        std::vector<std::function<void()>> keys;
        int heard;
    } cases[] = {{70, {louder}, 80},     {73, {louder}, 80},   {73, {quieter}, 70},
                 {70, {quieter}, 60},    {100, {louder}, 100}, {0, {quieter}, 0},
                 {5, {quieter}, 0},      {50, {mute}, 0},      {50, {mute, louder}, 60},
                 {50, {mute, mute}, 50}, {0, {mute}, 10}};
    for (const auto& c : cases) {
        volume.SetPercent(c.from);
        for (const auto& key : c.keys)
            key();
        EXPECT_EQ(HeardVolume(), c.heard) << "from " << c.from;
    }
}

TEST(Volume, IsRememberedMutedOrNot) {
    Volume& volume = Volume::Get();
    for (const bool muted : {true, false}) {
        volume.SetPercent(40);
        if (muted)
            volume.ToggleMuted();
        volume.Remember();
        volume.SetPercent(90);
        QSignalSpy changes(&volume, &Volume::Changed);
        volume.Recall();
        EXPECT_EQ(changes.size(), 1);
        EXPECT_EQ(volume.Percent(), 40);
        EXPECT_EQ(volume.Muted(), muted);
        EXPECT_EQ(volume.Words(), muted ? "Muted" : "40 %");
    }
}

} // namespace
