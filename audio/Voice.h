#pragma once

#include "audio/Frame.h"
#include "audio/Overlay.h"
#include "audio/PlayClock.h"
#include "audio/VolumeRamp.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <span>

namespace audio {

struct Reel;

/// Stands between reels and devices: hands out a reel's frames at the wanted speed, and fades over
/// 4 ms where sound begins and ends. Short sounds are added to them, and all of it gets the volume
/// that the player wants. What is said here of reels does not concern short sounds. Any thread may
/// call anything, and none waits for long.
///
/// Of several devices, some of which may hang, only the one that was connected last is served.
class Voice {
public:
    /// Plays `reel` from now on, once what sounds now has faded out; null for silence. The clock
    /// notes it under `run`. A reel goes on where it was left.
    void Play(std::shared_ptr<Reel> reel, std::uint64_t run);

    /// Speed factor above 0, at once; 1 is normal.
    void SetSpeed(double speed);

    /// Plays a short sound over it, from now on.
    void Add(Jingle jingle);

    /// Whether there is anything to be handed out, now or as soon as it is decoded.
    bool Sounding() const;

    /// Whether there is a short sound to be handed out.
    bool Chiming() const;

    /// Fades out the short sounds before a device is closed.
    void Hush();

    /// Whether what sounded before is still being faded out.
    bool Fading() const;

    /// Whether all of what `run` plays has been handed out.
    bool Ended(std::uint64_t run) const;

    /// Serves the device of this number, which is above 0 and never used twice. It takes `rate`
    /// frames a second; only a reel of that rate is heard.
    void Connect(std::uint64_t device, int rate);

    /// If this device is the one served, serves none until the next `Connect`.
    void Disconnect(std::uint64_t device);

    /// The device that is served, 0 for none, and when it last asked for frames, or was connected.
    struct Listener {
        std::uint64_t device = 0;
        PlayClock::Time asked;
    };
    Listener Served() const;

    /// For a device: fills in its next `out.size()` frames, silence where there are none.
    void Fill(std::uint64_t device, std::span<Frame> out) noexcept;

    /// Knows what is heard now.
    PlayClock& Clock() { return mClock; }

private:
    void Serve(std::span<Frame> out);
    std::size_t Render(std::span<Frame> out, bool sounding);
    Frame Interpolated(std::size_t index, std::size_t waiting) const;
    double Place() const;
    void ChangeOver();

    PlayClock mClock;

    mutable std::mutex mMutex; // guards all that follows
    std::shared_ptr<Reel> mWanted;
    std::uint64_t mWantedRun = 0;
    std::shared_ptr<Reel> mReel; // sounds, or fades out if it is not the one wanted
    std::shared_ptr<Reel> mOld;  // kept so that no device has to free it
    std::uint64_t mRun = 0;
    std::uint64_t mEndedRun = 0;
    Listener mListener;
    int mRate = 44100; // of the listener
    double mSpeed = 1;
    double mGain = 0;
    Overlay mOverlay;
    VolumeRamp mVolume;
};

} // namespace audio
