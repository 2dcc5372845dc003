// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QWidget;

namespace Tavik {

class HotKeyRecorder;

/// Feeds a shortcut recorder with the key events of one window while it records, before anything
/// in that window sees them; a window that loses the keyboard ends the recording. Owned by the
/// view that owns the recorder.
class HotKeyRecorderBridge final : public QObject
{
public:
    /// `window` is the widget whose window has the keyboard; it need not be shown yet.
    HotKeyRecorderBridge(HotKeyRecorder& recorder, KeyEvents& keyEvents, QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void recordingChanged(bool isRecording);
    bool handleKey(const QKeyEvent& event);

    HotKeyRecorder& m_recorder;
    KeyEvents& m_keyEvents;
    QPointer<QWidget> m_window;
    std::unique_ptr<KeyMonitor> m_modifierMonitor; ///< While recording.
};

} // namespace Tavik
