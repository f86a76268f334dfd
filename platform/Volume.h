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

    /// Sets it, brought into 0 to 100, and ends muting.
    void SetPercent(int percent);
    /// The next multiple of `kStep` that is louder (1) or less loud (-1).
    void Step(int direction);
    /// Mutes, or else has something heard again.
    void ToggleMuted();

    /// Takes what was kept at the end of the last run.
    void Recall();
    /// Keeps it for the next run.
    void Remember() const;

Q_SIGNALS:
    void Changed();

private:
    void Set(int percent, bool muted);
};

/// The percent to be heard, 0 while muted. Any thread may ask.
int HeardVolume();

} // namespace platform
