#include "audio/Effect.h"

#include "audio/Deck.h"
#include "audio/c_XAudio.h"

#include <QFile>
#include <QtEndian>
#include <map>
#include <utility>

namespace audio {

namespace {

QString NameOf(Effect effect) {
    switch (effect) {
    case Effect::Right:
        return QStringLiteral("right");
    case Effect::Wrong:
        return QStringLiteral("wrong");
    case Effect::Fanfare:
        break;
    }
    return QStringLiteral("fanfare");
}

} // namespace

void Play(Effect effect) {
    if (const Jingle& jingle = JingleOf(effect))
        Audio().mDeck->Chime(jingle);
}

const Jingle& JingleOf(Effect effect) {
    static std::map<Effect, Jingle> jingles;
    const auto [entry, isNew] = jingles.try_emplace(effect);
    if (isNew)
        entry->second = ReadJingle(QStringLiteral(":/Sounds/%1.pcm").arg(NameOf(effect)));
    return entry->second;
}

Jingle ReadJingle(const QString& file) {
    QFile pcm(file);
    if (!pcm.open(QIODevice::ReadOnly))
        return nullptr;
    const QByteArray bytes = pcm.readAll();
    const auto sample = [&bytes](std::size_t index) {
        const auto value = qFromLittleEndian<qint16>(bytes.constData() + index * sizeof(qint16));
        return static_cast<float>(value) / 32768;
    };
    std::vector<Frame> frames(static_cast<std::size_t>(bytes.size()) / (2 * sizeof(qint16)));
    for (std::size_t i = 0; i < frames.size(); ++i)
        frames[i] = {sample(2 * i), sample(2 * i + 1)};
    return std::make_shared<const std::vector<Frame>>(std::move(frames));
}

} // namespace audio
