// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KeyNames.h>
#include <TavikLauncherPlatform/Linux/Wayland/HyprlandShortcuts.h>
#include <TavikLauncherPlatform/Texts.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* application = "org.tavik.Launcher";
constexpr const char* shortcutId = "summon";
/// In the user defaults: the line whose shortcut has been heard.
const QString heardKey = u"HyprlandShortcutHeard"_s;

/// With those modifiers, and that key or Space.
QString lineFor(const KeyEvents::HotKey& hotKey)
{
    QStringList held;
    for (const auto& [flag, name] : {std::pair(ModifierFlags::control, u"CTRL"_s),
                                     std::pair(ModifierFlags::option, u"ALT"_s),
                                     std::pair(ModifierFlags::shift, u"SHIFT"_s),
                                     std::pair(ModifierFlags::command, u"SUPER"_s)}) {
        if ((hotKey.modifierFlags & flag) != 0) {
            held << name;
        }
    }
    const auto key
        = hotKey.keyCode ? KeyNames::symbolName(*hotKey.keyCode, hotKey.label) : std::nullopt;
    return u"bind = %1, %2, global, %3:%4"_s.arg(held.join(u' '),
                                                 key.value_or(u"space"_s),
                                                 QLatin1String(application),
                                                 QLatin1String(shortcutId));
}

} // namespace

/// What the compositor calls. Nothing may throw through it.
struct HyprlandShortcuts::Listeners
{
    using Shortcut = hyprland_global_shortcut_v1;

    static void pressed(void* data, Shortcut*, uint32_t, uint32_t, uint32_t)
    {
        auto& self = *static_cast<HyprlandShortcuts*>(data);
        if (!self.serves()) {
            self.m_userDefaults.setObject(heardKey, self.m_line);
        }
        // Copied, because whoever is told may bind anew.
        if (const auto tell = self.m_handlers.pressed) {
            tell();
        }
    }
    static void released(void* data, Shortcut*, uint32_t, uint32_t, uint32_t)
    {
        if (const auto tell = static_cast<HyprlandShortcuts*>(data)->m_handlers.released) {
            tell();
        }
    }
};

std::unique_ptr<HyprlandShortcuts> HyprlandShortcuts::make(UserDefaults& userDefaults)
{
    std::unique_ptr<HyprlandShortcuts> shortcuts(new HyprlandShortcuts(userDefaults));
    return shortcuts->m_manager ? std::move(shortcuts) : nullptr;
}

HyprlandShortcuts::HyprlandShortcuts(UserDefaults& userDefaults)
    : m_userDefaults(userDefaults)
    , m_manager(m_connection.bindShortcuts())
{
    m_connection.onBroken = [this] {
        m_shortcut.reset();
        if (const Handlers handlers = std::exchange(m_handlers, {}); handlers.lost) {
            handlers.lost(statusGone);
        }
    };
    if (m_manager) {
        m_connection.listen();
    }
}

HyprlandShortcuts::~HyprlandShortcuts()
{
    m_connection.onBroken = nullptr;
    unbind();
}

bool HyprlandShortcuts::serves() const
{
    return m_shortcut && m_userDefaults.stringValue(heardKey) == m_line;
}

Means HyprlandShortcuts::means() const
{
    return {.way = Texts::tr("A shortcut that Hyprland's configuration gives.")};
}

QString HyprlandShortcuts::request() const
{
    return Texts::tr("Hyprland gives a shortcut to the program that its configuration names. It is "
                     "active as soon as you have pressed it once.");
}

int HyprlandShortcuts::status(const KeyEvents::HotKey& hotKey)
{
    if (m_connection.isBroken()) {
        return statusGone;
    }
    return hotKey.keyCode && KeyNames::symbolName(*hotKey.keyCode, hotKey.label) ? 0
                                                                                 : statusNoSuchKey;
}

int HyprlandShortcuts::bind(const KeyEvents::HotKey& hotKey, Handlers handlers)
{
    unbind();
    m_line = lineFor(hotKey);
    m_isChord = !hotKey.keyCode;
    if (const int fault = status(hotKey); fault != 0) {
        return fault;
    }
    m_handlers = std::move(handlers);
    m_shortcut.reset(hyprland_global_shortcuts_manager_v1_register_shortcut(
        m_manager.get(),
        shortcutId,
        application,
        Texts::tr("Summon the ring").toUtf8().constData(),
        hotKey.label.toUtf8().constData()));
    static const hyprland_global_shortcut_v1_listener listener{&Listeners::pressed,
                                                               &Listeners::released};
    hyprland_global_shortcut_v1_add_listener(m_shortcut.get(), &listener, this);
    m_connection.flush();
    return m_connection.isBroken() ? statusGone : 0;
}

void HyprlandShortcuts::unbind()
{
    m_handlers = {};
    m_shortcut.reset();
    m_connection.flush();
}

} // namespace Tavik
