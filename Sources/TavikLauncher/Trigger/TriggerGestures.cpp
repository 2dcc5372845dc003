// SPDX-License-Identifier: MIT
#include <TavikLauncher/Trigger/TriggerGestures.h>

#include <utility>

namespace Tavik {

namespace {

/// From the release of a tap to the next press. Closer together it is one press told twice.
constexpr double doubleTapFloor = 0.05;
constexpr double modifierDoubleTapInterval = 1.0;
/// From press to release.
constexpr double modifierTapMaxHoldDuration = 0.35;

/// Differences of times are rounded; a bound must still include itself.
constexpr double rounding = 1e-6;

bool isWithin(double duration, double lowest, double highest)
{
    return duration >= lowest - rounding && duration <= highest + rounding;
}

} // namespace

TriggerGestures::TriggerGestures(Panel panel)
    : m_panel(std::move(panel))
{ }

void TriggerGestures::press(Shortcut shortcut, double time)
{
    if (shortcut == Shortcut::keyed) {
        if (m_panel.isVisible()) {
            m_panel.hide();
        } else {
            m_panel.showAtPointer();
        }
        return;
    }
    if (m_isShortcut) {
        return;
    }
    const bool isSecond = isSecondTap(time);
    if (std::exchange(m_staysOpen, false) && m_panel.isVisible() && !isSecond) {
        m_panel.hide();
        return;
    }
    m_panel.showAtPointer();
    if (isSecond) {
        m_panel.pin();
        m_hasPinned = true;
    }
    m_lastPressTime = time;
}

void TriggerGestures::release(Shortcut shortcut, ReleaseReason reason, double time)
{
    if (shortcut == Shortcut::keyed) {
        return;
    }
    m_hasPinned = false;
    recordRelease(reason, time);
    m_staysOpen = reason == ReleaseReason::neverHeld;
    if (!m_staysOpen && !m_panel.isPinned()) {
        m_panel.hide();
    }
}

void TriggerGestures::heldAfterAll(double time)
{
    if (m_isShortcut) {
        return;
    }
    m_staysOpen = false;
    m_lastPressTime = time;
    if (!m_panel.isVisible()) {
        m_panel.showAtPointer();
    }
}

void TriggerGestures::otherKey(OtherKey key)
{
    m_isShortcut = true;
    m_lastPressTime.reset();
    m_lastReleaseTime.reset();
    // A modifier that is pressed in a ring pinned before is typed into it.
    if (key == OtherKey::takenElsewhere || std::exchange(m_hasPinned, false)) {
        m_panel.hide();
    }
}

void TriggerGestures::letGo()
{
    m_isShortcut = false;
}

void TriggerGestures::systemWillSleep()
{
    m_lastPressTime.reset();
    m_lastReleaseTime.reset();
}

bool TriggerGestures::isSecondTap(double pressedAt)
{
    // A release counts for one test at most, whatever comes of it.
    const std::optional<double> released = std::exchange(m_lastReleaseTime, std::nullopt);
    return released && m_panel.doubleTapPins()
        && isWithin(pressedAt - *released, doubleTapFloor, modifierDoubleTapInterval);
}

void TriggerGestures::recordRelease(ReleaseReason reason, double time)
{
    const std::optional<double> pressed = std::exchange(m_lastPressTime, std::nullopt);
    const bool isShort = pressed && time - *pressed <= modifierTapMaxHoldDuration + rounding;
    const bool isTap = (reason == ReleaseReason::chordReleased && isShort)
        || (reason == ReleaseReason::neverHeld && pressed);
    m_lastReleaseTime = isTap ? std::optional(time) : std::nullopt;
}

} // namespace Tavik
