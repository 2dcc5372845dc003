// SPDX-License-Identifier: MIT
#include <TavikLauncher/Trigger/ChordRecogniser.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <utility>

namespace Tavik {

namespace {

/// How long a release that nobody told of can keep a chord alive.
constexpr double heldModifiersSeconds = 0.25;
/// By then the ring has the keyboard, or will not have it.
constexpr double askingSeconds = 1.0;
/// A window has been told by then of all keys that were down when it got the keyboard.
constexpr double doubtSeconds = 0.1;
/// So far apart two sources may tell of one moment.
constexpr double sourcesApartSeconds = 0.05;

} // namespace

ChordRecogniser::ChordRecogniser(const Dependencies& dependencies,
                                 quint64 modifierFlags,
                                 std::function<void(const News&)> tell)
    : m_dependencies(dependencies)
    , m_modifierFlags(modifierFlags)
    , m_tell(std::move(tell))
{ }

bool ChordRecogniser::stop()
{
    m_heldTimer.cancel();
    m_doubt.cancel();
    return std::exchange(m_isActive, false);
}

void ChordRecogniser::pressTold(double time)
{
    const std::optional<quint64> held = m_dependencies.keyEvents.heldModifiers();
    News news{.time = time, .isPress = true};
    if (m_isActive && held && holdsChord(*held)) {
        // A source of our own was first, and may have taken this press for the one before.
        if (std::exchange(m_isHeldAfterAll, false)) {
            tell(news);
        }
        return;
    }
    if (m_isActive) {
        news.endedBefore = end();
        news.isLetGoBefore = std::exchange(m_isJoined, false);
    }
    begin(time);
    m_isHoldSeen = held && isChord(*held);
    if (held && !m_isHoldSeen) {
        doubt(std::nullopt);
    }
    tell(news);
}

void ChordRecogniser::releaseTold(double time)
{
    m_isHoldSeen = m_isActive;
    modifiersAre(0, time);
}

/// Keys that were down before a window got the keyboard are told to it one by one, so the chord may
/// still come to light.
void ChordRecogniser::doubt(std::optional<quint64> told)
{
    // What is told at first is what a window knows that has just got the keyboard.
    const bool isFirstTold = told && !m_toldInDoubt;
    m_toldInDoubt = told;
    if (m_doubt.isActive() && !isFirstTold) {
        return;
    }
    m_doubt = m_dependencies.mainQueue.after(doubtSeconds, [this] {
        const std::optional<quint64> held = m_dependencies.keyEvents.heldModifiers();
        if (held && isChord(*held)) {
            m_isHoldSeen = true;
            return;
        }
        // A window may never be told of a key that made the desktop listen; and while the keyboard
        // goes to another window, that one will be asked.
        if (!held && (!m_toldInDoubt || (*m_toldInDoubt & m_modifierFlags) != 0)) {
            return;
        }
        // However long it took to find out, it was let go at once.
        News news{.time = m_time};
        news.releasedBy = end();
        m_hasEndedUnseen = true;
        news.isLetGo = std::exchange(m_isJoined, false);
        tell(news);
    });
}

void ChordRecogniser::begin(double time)
{
    m_isActive = true;
    m_hasEndedUnseen = false;
    m_isHeldAfterAll = false;
    m_toldInDoubt.reset();
    m_time = time;
    m_uptime = m_dependencies.mainQueue.systemUptime();
    m_heldTimer = m_dependencies.mainQueue.every(heldModifiersSeconds, [this] { checkHeld(); });
}

ReleaseReason ChordRecogniser::end()
{
    m_isActive = false;
    m_lastReleaseUptime = m_dependencies.mainQueue.systemUptime();
    m_heldTimer.cancel();
    m_doubt.cancel();
    // Whose key ran a command is not known; a desktop that was asked for the chord tells of that.
    return m_isHoldSeen || m_isAskedFor ? ReleaseReason::chordReleased : ReleaseReason::neverHeld;
}

bool ChordRecogniser::isChord(quint64 flags) const
{
    return ((flags ^ m_modifierFlags) & ModifierFlags::all) == 0;
}

bool ChordRecogniser::holdsChord(quint64 flags) const
{
    return (m_modifierFlags & ~flags) == 0;
}

void ChordRecogniser::modifiersAre(quint64 flags, double time)
{
    if (m_isActive && !m_isHoldSeen) {
        if (!isChord(flags)) {
            doubt(flags);
            return;
        }
        m_isHoldSeen = true;
        m_doubt.cancel();
    }
    const bool holds = holdsChord(flags);
    News news{.time = time};
    if (holds && !isChord(flags) && !m_isJoined) {
        m_isJoined = true;
        news.joinedBy = OtherKey::modifier;
    }
    if (isChord(flags) && !m_isActive) {
        // A busy desktop may tell a window very late of what was down when it got the keyboard.
        const bool isHeldAfterAll = m_hasEndedUnseen
            && m_dependencies.mainQueue.systemUptime() - m_uptime <= askingSeconds;
        if (isHeldAfterAll) {
            news.heldSince = m_time;
        } else {
            news.isPress = true;
        }
        begin(news.heldSince.value_or(time));
        m_isHeldAfterAll = isHeldAfterAll;
        m_isHoldSeen = true;
        if (isRecent(m_lastOtherKeyUptime)) {
            m_isJoined = true;
            news.joinedBy = OtherKey::takenElsewhere;
        }
    } else if (!isChord(flags) && m_isActive) {
        news.releasedBy = end();
    }
    news.isLetGo = m_isJoined && !holds;
    m_isJoined = m_isJoined && holds;
    tell(news);
}

void ChordRecogniser::otherKeyTaken(quint64 flags, double time)
{
    if (!holdsChord(flags)) {
        return;
    }
    if (!m_isActive && !isRecent(m_lastReleaseUptime)) {
        // The press of the chord is still to be told.
        m_lastOtherKeyUptime = m_dependencies.mainQueue.systemUptime();
        return;
    }
    m_isJoined = m_isActive;
    tell({.time = time, .joinedBy = OtherKey::takenElsewhere, .isLetGo = !m_isActive});
}

bool ChordRecogniser::isRecent(std::optional<double> uptime) const
{
    return uptime && m_dependencies.mainQueue.systemUptime() - *uptime <= sourcesApartSeconds;
}

void ChordRecogniser::checkHeld()
{
    const std::optional<quint64> held = m_dependencies.keyEvents.heldModifiers();
    if (held) {
        modifiersAre(*held, m_dependencies.mainQueue.systemUptime());
    } else if (m_dependencies.mainQueue.systemUptime() - m_uptime > askingSeconds) {
        m_heldTimer.cancel(); // Whoever gets to know will tell.
    }
}

void ChordRecogniser::tell(const News& news)
{
    const auto tell = m_tell; // Copied, because who is told may destroy this.
    tell(news);
}

} // namespace Tavik
