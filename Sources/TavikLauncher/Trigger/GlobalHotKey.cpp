// SPDX-License-Identifier: MIT
#include <TavikLauncher/Trigger/GlobalHotKey.h>
#include <TavikLauncherPlatform/KeyEvents.h>

#include <QLoggingCategory>

#include <utility>

namespace Tavik {

namespace {
Q_LOGGING_CATEGORY(log, "tavik.trigger")
}

GlobalHotKey::GlobalHotKey(KeyEvents& keyEvents,
                           HotKeyConfig config,
                           std::function<void(double)> onPress)
    : m_keyEvents(keyEvents)
    , m_config(std::move(config))
    , m_onPress(std::move(onPress))
{ }

GlobalHotKey::~GlobalHotKey()
{
    unregister();
}

bool GlobalHotKey::registerHotKey()
{
    if (!m_config.keyCode) {
        qCWarning(log, "Tavik Launcher: failed to install hotkey monitors");
        return false;
    }
    const KeyEvents::HotKey hotKey{
        .keyCode = *m_config.keyCode,
        .modifierFlags = m_config.modifierFlagsRaw & ModifierFlags::all,
    };
    KeyEvents::HotKeyResult result = m_keyEvents.registerHotKey(hotKey, m_onPress);
    if (!result.registration) {
        qCWarning(log, "Tavik Launcher: RegisterEventHotKey status %d", result.status);
        qCWarning(log, "Tavik Launcher: failed to install hotkey monitors");
        return false;
    }
    m_registration = std::move(result.registration);
    return true;
}

void GlobalHotKey::unregister()
{
    m_registration.reset();
}

} // namespace Tavik
