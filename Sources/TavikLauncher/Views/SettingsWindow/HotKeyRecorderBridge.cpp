// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/KeyTranslation.h>
#include <TavikLauncher/Settings/HotKeyRecorder.h>
#include <TavikLauncher/Views/SettingsWindow/HotKeyRecorderBridge.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace Tavik {

HotKeyRecorderBridge::HotKeyRecorderBridge(HotKeyRecorder& recorder,
                                           KeyEvents& keyEvents,
                                           QWidget& window)
    : m_recorder(recorder)
    , m_keyEvents(keyEvents)
    , m_window(&window)
{
    connect(&recorder, &HotKeyRecorder::isRecordingChanged, this, [this](bool isRecording) {
        recordingChanged(isRecording);
    });
}

void HotKeyRecorderBridge::recordingChanged(bool isRecording)
{
    if (!isRecording) {
        m_modifierMonitor.reset();
        QCoreApplication::instance()->removeEventFilter(this);
        return;
    }
    // The system knows best what is held: to the toolkit Shift makes another key of Alt.
    m_modifierMonitor = m_keyEvents.addLocalMonitor(
        KeyEvents::Kind::modifiersChanged, [this](const KeyEvents::Event& event) {
            m_recorder.modifierFlagsChanged(event.modifierFlags);
            return false;
        });
    // On the application, because whichever widget has the focus must not see the key, and no
    // shortcut of a menu or a button may take it either.
    QCoreApplication::instance()->installEventFilter(this);
}

bool HotKeyRecorderBridge::eventFilter(QObject* watched, QEvent* event)
{
    const auto* widget = qobject_cast<QWidget*>(watched);
    if (!m_window || !widget || widget->window() != m_window->window()) {
        return false;
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return handleKey(static_cast<const QKeyEvent&>(*event));
    case QEvent::WindowDeactivate:
        if (widget->isWindow()) {
            m_recorder.stop();
        }
        return false;
    default:
        return false;
    }
}

bool HotKeyRecorderBridge::handleKey(const QKeyEvent& event)
{
    const KeyEvents::LevelUse levelUse = KeyTranslation::levelUse(event, m_keyEvents);
    if (levelUse == KeyEvents::LevelUse::chooser) {
        if (!event.isAutoRepeat()) {
            m_recorder.levelKeyChanged(event.type() == QEvent::KeyPress,
                                       KeyTranslation::modifierFlags(event.modifiers()));
        }
        return false;
    }
    if (KeyTranslation::isModifierKey(event)) {
        if (!m_modifierMonitor) {
            m_recorder.modifierFlagsChanged(KeyTranslation::modifierFlagsAfter(event));
        }
        return false;
    }
    if (event.type() == QEvent::KeyRelease || event.isAutoRepeat()) {
        return true;
    }
    const std::optional<quint16> keyCode = KeyTranslation::keyCode(event, m_keyEvents);
    if (!keyCode) {
        return true; // A key that no record can name.
    }
    const QString characters = KeyTranslation::charactersIgnoringModifiers(event, m_keyEvents);
    return m_recorder.keyDown({
        .keyCode = *keyCode,
        .modifierFlags = KeyTranslation::modifierFlags(event.modifiers()),
        .characters = characters.isEmpty() ? std::nullopt : std::optional(characters),
        .choosesLevel = levelUse == KeyEvents::LevelUse::chosen,
    });
}

} // namespace Tavik
