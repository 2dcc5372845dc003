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
    if (held != 0) {
        m_hadKeyPress = true;
        commit(HotKeyConfig::make(held, event.keyCode, event.characters));
    } else if (event.keyCode == escape) {
        stop();
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
    if (held != 0 || m_hadKeyPress) {
        return;
    }
    if (std::popcount(m_peakModifiers) >= fewestChordModifiers) {
        commit(HotKeyConfig::make(m_peakModifiers, std::nullopt));
    } else if (m_peakModifiers != 0) {
        stop();
    }
}

void HotKeyRecorder::setRecording(bool isRecording)
{
    const bool hasChanged = m_isRecording != isRecording;
    m_isRecording = isRecording;
    m_peakModifiers = 0;
    m_hadKeyPress = false;
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
