// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/ShortcutWords.h>
#include <TavikLauncher/Shell/ScreenGuard.h>
#include <TavikLauncher/Shell/TriggerShortcut.h>
#include <TavikLauncher/Trigger/GlobalHotKey.h>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

TriggerShortcut::TriggerShortcut(const Dependencies& dependencies, Actions actions)
    : m_dependencies(dependencies)
    , m_actions(std::move(actions))
    , m_gestures(m_actions.panel)
{ }

TriggerShortcut::~TriggerShortcut()
{
    m_dependencies.keyEvents.onKeyboardChanged = nullptr;
}

void TriggerShortcut::setupHotKey()
{
    m_dependencies.keyEvents.onKeyboardChanged = [this] {
        if (!m_hotKey) {
            setupHotKey();
        }
    };
    m_hotKey.reset();
    m_gestures.letGo();
    if (m_isRecording) {
        // The ring would take the keyboard from who records, in the middle of the gesture.
        return;
    }
    std::unique_ptr<GlobalHotKey> hotKey = makeHotKey();
    if (hotKey->registerHotKey()) {
        m_hotKey = std::move(hotKey);
    }
}

DesktopCheck::Trigger TriggerShortcut::state() const
{
    if (m_isRecording) {
        return m_stateBeforeRecording;
    }
    using Hearing = GlobalHotKey::Hearing;
    // Without one the keyboard cannot give it.
    const Hearing hearing = m_hotKey ? m_hotKey->hearing() : Hearing::shared;
    return hearing == Hearing::heard ? DesktopCheck::Trigger::heard
        : hearing == Hearing::shared ? DesktopCheck::Trigger::refused
                                     : DesktopCheck::Trigger::unheard;
}

void TriggerShortcut::setRecording(bool isRecording)
{
    m_stateBeforeRecording = state();
    m_isRecording = isRecording;
    setupHotKey();
}

void TriggerShortcut::press()
{
    if (m_hotKey) {
        m_hotKey->summon();
    } else if (!m_isRecording) {
        // Whatever shortcut it is, the program cannot have it, and so hears of no release.
        m_gestures.press(TriggerGestures::Shortcut::keyed, m_dependencies.mainQueue.systemUptime());
    }
}

std::unique_ptr<GlobalHotKey> TriggerShortcut::makeHotKey()
{
    const HotKeyConfig config = m_dependencies.settings.hotKeyConfig();
    const auto shortcut = config.isModifierOnly() ? TriggerGestures::Shortcut::modifierOnly
                                                  : TriggerGestures::Shortcut::keyed;
    auto hotKey = std::make_unique<GlobalHotKey>(
        GlobalHotKey::Dependencies{
            m_dependencies.keyEvents, m_dependencies.permission, m_dependencies.mainQueue},
        config,
        [this, shortcut](double time) {
            if (m_dependencies.screenGuard.isFree()) {
                m_gestures.press(shortcut, time);
            }
        },
        [this, shortcut](ReleaseReason reason, double time) {
            m_gestures.release(shortcut, reason, time);
        });
    hotKey->onHeldAfterAll = [this](double time) {
        if (m_dependencies.screenGuard.isFree()) {
            m_gestures.heldAfterAll(time);
        }
    };
    hotKey->onOtherKey = [this](OtherKey key) {
        m_gestures.otherKey(key);
    };
    hotKey->onLetGo = [this] {
        m_gestures.letGo();
    };
    hotKey->onHotKeyLost = [this, lost = ShortcutWords::lost(config)](int) {
        m_actions.tell(lost, ShortcutWords::whyLost());
    };
    hotKey->onAccessibilityRevoked = m_actions.checkAccessibilityPermission;
    return hotKey;
}

} // namespace Tavik
