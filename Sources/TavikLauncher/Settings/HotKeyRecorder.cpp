// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/HotKeyRecorder.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <bit>

namespace Tavik {

namespace {

constexpr quint16 escape = 53;
constexpr int fewestChordModifiers = 2;

} // namespace

void HotKeyRecorder::start()
{
    setRecording(true);
}

void HotKeyRecorder::stop()
{
    setRecording(false);
}

bool HotKeyRecorder::keyDown(const KeyDown& event)
{
    if (!m_isRecording) {
        return false;
    }
    const quint64 held = event.modifierFlags & ModifierFlags::all;
    if (held == 0 && event.keyCode == escape) {
        stop();
    } else if (event.choosesLevel || m_isLevelKeyDown) {
        refuseLevel();
    } else if (held != 0) {
        m_hadKeyPress = true;
        commit(HotKeyConfig::make(held, event.keyCode, event.characters));
    }
    return true;
}

void HotKeyRecorder::modifierFlagsChanged(quint64 heldFlags)
{
    if (!m_isRecording) {
        return;
    }
    const quint64 held = heldFlags & ModifierFlags::all;
    if (std::popcount(held) >= std::popcount(m_peakModifiers)) {
        m_peakModifiers = held;
    }
    m_heldModifiers = held;
    if (held != 0 || m_hadKeyPress) {
        return;
    }
    if (m_isRefused) {
        endRefusedGesture();
        return;
    }
    if (std::popcount(m_peakModifiers) >= fewestChordModifiers) {
        commit(HotKeyConfig::make(m_peakModifiers, std::nullopt));
    } else if (m_peakModifiers != 0) {
        stop();
    }
}

void HotKeyRecorder::levelKeyChanged(bool isDown, quint64 heldFlags)
{
    if (!m_isRecording || isDown == m_isLevelKeyDown) {
        return;
    }
    m_isLevelKeyDown = isDown;
    m_heldModifiers = heldFlags & ModifierFlags::all;
    if (isDown) {
        refuseLevel();
    } else if (m_heldModifiers == 0) {
        endRefusedGesture();
    }
}

void HotKeyRecorder::refuseLevel()
{
    m_isRefused = true;
    if (onLevelRefused) {
        onLevelRefused();
    }
}

void HotKeyRecorder::endRefusedGesture()
{
    m_peakModifiers = 0;
    m_isRefused = m_isLevelKeyDown;
}

void HotKeyRecorder::setRecording(bool isRecording)
{
    const bool hasChanged = m_isRecording != isRecording;
    m_isRecording = isRecording;
    m_peakModifiers = 0;
    m_hadKeyPress = false;
    m_heldModifiers = 0;
    m_isLevelKeyDown = false;
    m_isRefused = false;
    if (hasChanged) {
        Q_EMIT isRecordingChanged(isRecording);
    }
}

void HotKeyRecorder::commit(const HotKeyConfig& config)
{
    stop();
    if (onCommit) {
        onCommit(config);
    }
}

} // namespace Tavik
