#pragma once

#include <QObject>
#include <QString>

namespace platform {

/// How loud the player wants the program to be, kept from run to run. Used by the thread of the
/// user interface.
class Volume : public QObject {
    Q_OBJECT
public:
    static constexpr int kStep = 10; ///< percent

    static Volume& Get();

    /// 0 to 100 percent, muted or not.
    int Percent() const;
    bool Muted() const;
    /// Whether nothing is heard: it is muted or at 0.
    bool Silent() const;
    /// What is to be heard, in words: "70 %" or "Muted".
    QString Words() const;

    /// Sets it, clamped to 0 to 100, and ends muting.
    void SetPercent(int percent);
    /// Goes to the next multiple of `kStep`, louder (1) or quieter (-1), and ends muting.
    void Step(int direction);
    /// Mutes or, if nothing is heard, ends muting and makes it at least `kStep`.
    void ToggleMuted();

    /// Restores what `Remember` kept in an earlier run.
    void Recall();
    /// Keeps it for the next run.
    void Remember() const;

Q_SIGNALS:
    void Changed();

private:
    void Set(int percent, bool muted);
};

/// The percentage to play at, 0 while muted. Any thread may call this.
int HeardVolume();

} // namespace platform
