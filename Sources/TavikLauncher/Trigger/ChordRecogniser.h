// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QtGlobal>

#include <functional>
#include <optional>

namespace Tavik {

class KeyEvents;

/// Why a chord is no longer held.
enum class ReleaseReason {
    chordReleased,
    unregistered,
    neverHeld ///< A command told of the press, and the chord was not down.
};

/// A key that joins a chord and is not meant for us. The chord is a shortcut of somebody else's
/// then.
enum class OtherKey {
    modifier,
    takenElsewhere ///< An ordinary key that the desktop or another program has asked for.
};

/// Tells a chord of modifiers from changes of what is held, whoever has seen them: a change may be
/// told several times and by several sources, and the release of a chord that somebody else has
/// told may never be. Times are those of the events, in seconds of system uptime. Main thread only.
class ChordRecogniser
{
public:
    /// What one change of the keyboard means to the owner, in the order in which it is told.
    struct News
    {
        double time = 0;
        std::optional<OtherKey> joinedBy;
        std::optional<ReleaseReason> endedBefore; ///< A chord whose release nobody told.
        bool isLetGoBefore = false;
        bool isPress = false;
        std::optional<double> heldSince; ///< The press before, though its end has been told.
        std::optional<ReleaseReason> releasedBy;
        bool isLetGo = false;
    };

    struct Dependencies
    {
        KeyEvents& keyEvents; ///< Asked for what is held.
        MainQueue& mainQueue;
    };
    /// `tell` is called last of all that a change brings about, and may destroy this.
    ChordRecogniser(const Dependencies& dependencies,
                    quint64 modifierFlags,
                    std::function<void(const News&)> tell);

    /// These modifiers are in effect, and no others.
    void modifiersAre(quint64 flags, double time);
    /// Whoever listens in our place tells the press of a chord, and maybe not its release. Until
    /// the keyboard has said what is held, which may be when the ring has it, the chord counts as
    /// held.
    void pressTold(double time);
    void releaseTold(double time);
    /// The desktop or another program got an ordinary key while these modifiers were in effect.
    void otherKeyTaken(quint64 flags, double time);
    /// A desktop that was asked for the chord tells of nothing else; a command may.
    void setAskedFor(bool isAskedFor) { m_isAskedFor = isAskedFor; }
    /// Returns whether the chord was held; nothing more is told of it.
    bool stop();

private:
    void doubt(std::optional<quint64> told);
    void begin(double time);
    [[nodiscard]] ReleaseReason end();
    [[nodiscard]] bool isChord(quint64 flags) const;
    /// True also with modifiers that do not belong to the chord.
    [[nodiscard]] bool holdsChord(quint64 flags) const;
    [[nodiscard]] bool isRecent(std::optional<double> uptime) const;
    void checkHeld();
    void tell(const News& news);

    Dependencies m_dependencies;
    quint64 m_modifierFlags;
    std::function<void(const News&)> m_tell;
    bool m_isAskedFor = false;
    bool m_isActive = false;
    bool m_isHoldSeen = false; ///< The keyboard itself has shown that the chord is held.
    bool m_hasEndedUnseen = false; ///< The press before was told, and never seen to be held.
    bool m_isHeldAfterAll = false; ///< And then it was, unless this is the next.
    bool m_isJoined = false; ///< Another key is down, or was, since the chord's were all held.
    double m_time = 0; ///< When the chord that is held began, by its event.
    double m_uptime = 0; ///< And by the clock.
    std::optional<double> m_lastReleaseUptime; ///< When the end of the last chord was told.
    std::optional<double> m_lastOtherKeyUptime; ///< Of one that was told before its chord.
    Task m_doubt;
    /// What was told last of a chord that was never seen; absent when nothing was.
    std::optional<quint64> m_toldInDoubt;
    Task m_heldTimer; ///< Runs only while the chord is held and somebody can tell.
};

} // namespace Tavik
