#include "platform/Volume.h"

#include "platform/Settings.h"

#include <algorithm>
#include <atomic>

namespace platform {

namespace {

const QString kApplication = QStringLiteral("Songrush");
const QString kSection = QStringLiteral("Sound");
const QString kPercentKey = QStringLiteral("Volume");
const QString kMutedKey = QStringLiteral("Muted");
constexpr int kFull = 100;

std::atomic<int> gPercent = kFull;
std::atomic<bool> gMuted = false;

} // namespace

int HeardVolume() { return gMuted ? 0 : gPercent.load(); }

Volume& Volume::Get() {
    static Volume volume;
    return volume;
}

int Volume::Percent() const { return gPercent; }

bool Volume::Muted() const { return gMuted; }

bool Volume::Silent() const { return HeardVolume() == 0; }

QString Volume::Words() const {
    return Muted() ? QStringLiteral("Muted") : QStringLiteral("%1 %").arg(Percent());
}

void Volume::SetPercent(int percent) { Set(percent, false); }

void Volume::Step(int direction) {
    const int louder = Percent() / kStep + 1;
    const int quieter = (Percent() + kStep - 1) / kStep - 1;
    SetPercent((direction > 0 ? louder : quieter) * kStep);
}

void Volume::ToggleMuted() {
    if (Silent())
        Set(std::max(Percent(), kStep), false);
    else
        Set(Percent(), true);
}

void Volume::Recall() {
    const auto setting = [](const QString& key, int fallback) {
        return ReadSetting(kApplication, kSection, key, QString::number(fallback));
    };
    bool isNumber = false;
    const int percent = setting(kPercentKey, kFull).toInt(&isNumber);
    Set(isNumber ? percent : kFull, setting(kMutedKey, 0) == QStringLiteral("1"));
}

void Volume::Remember() const {
    WriteSetting(kApplication, kSection, kPercentKey, QString::number(Percent()));
    WriteSetting(kApplication, kSection, kMutedKey,
                 Muted() ? QStringLiteral("1") : QStringLiteral("0"));
}

void Volume::Set(int percent, bool muted) {
    const int within = std::clamp(percent, 0, kFull);
    if (within == gPercent && muted == gMuted)
        return;
    gPercent = within;
    gMuted = muted;
    Q_EMIT Changed();
}

} // namespace platform
