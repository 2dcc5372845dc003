// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Settings/HotKeyConfig.h>

#include <QObject>

#include <functional>

namespace Tavik {

/// Turns the user's next gesture on the keyboard into a shortcut: modifiers and a key, or two or
/// more modifiers held and released. Is fed with key events while it records; where those come from
/// is not its business. Owned by the row of the settings that shows the shortcut.
class HotKeyRecorder final : public QObject
{
    Q_OBJECT

public:
    struct KeyDown
    {
        quint16 keyCode = 0; ///< Virtual key code of the standard layout.
        quint64 modifierFlags = 0; ///< What is held, in bits of ModifierFlags.
        std::optional<QString> characters; ///< What the key types, ignoring modifiers.
        bool choosesLevel = false; ///< AltGr or the like is held.
    };

    using QObject::QObject;

    [[nodiscard]] bool isRecording() const { return m_isRecording; }

    void start();
    /// Ends the recording without a shortcut.
    void stop();
    /// Returns whether the recorder takes the event: while it records it takes every key.
    bool keyDown(const KeyDown& event);
    /// `heldFlags` is what is held after the change.
    void modifierFlagsChanged(quint64 heldFlags);
    /// AltGr or the like, which only chooses what a key types, has gone down or up. May be told
    /// more than once. `heldFlags` is what is held with it; `modifierFlagsChanged` may tell of that
    /// later, because it hears of it in another way.
    void levelKeyChanged(bool isDown, quint64 heldFlags);

    /// Receives the shortcut, once per recording and after it has ended.
    std::function<void(const HotKeyConfig&)> onCommit;
    /// A gesture with AltGr or the like becomes no shortcut: without it the shortcut would be
    /// another one. The recording goes on.
    std::function<void()> onLevelRefused;

Q_SIGNALS:
    void isRecordingChanged(bool isRecording);

private:
    void setRecording(bool isRecording);
    void commit(const HotKeyConfig& config);
    void refuseLevel();
    void endRefusedGesture();

    bool m_isRecording = false;
    quint64 m_peakModifiers = 0; ///< The most modifiers held at once during the gesture.
    bool m_hadKeyPress = false; ///< A key other than a modifier went down during the gesture.
    quint64 m_heldModifiers = 0;
    bool m_isLevelKeyDown = false;
    bool m_isRefused = false; ///< The gesture, for the rest of it.
};

} // namespace Tavik
