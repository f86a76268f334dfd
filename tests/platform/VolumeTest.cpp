#include "platform/Volume.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using platform::Volume;

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
        QSignalSpy changes(&volume, &Volume::Changed);
        volume.Recall();
        EXPECT_EQ(changes.size(), 1);
        EXPECT_EQ(volume.Percent(), 40);
        EXPECT_EQ(volume.Muted(), muted);
        EXPECT_EQ(volume.Words(), muted ? "Muted" : "40 %");
    }
}

} // namespace
