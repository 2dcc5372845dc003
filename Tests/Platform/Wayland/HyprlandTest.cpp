// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutPermission.h>
#include <TavikLauncherPlatform/Linux/Wayland/HyprlandShortcuts.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <Support/FakeKeyEvents.h>
#include <Support/MemoryUserDefaults.h>
#include <atomic>
#include <map>
#include <mutex>
#include <thread>

#include <wayland-hyprland-shortcuts-server.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// A compositor with nothing but Hyprland's shortcuts, on a thread of its own.
class FakeHyprland
{
public:
    FakeHyprland()
    {
        wl_display_add_socket(m_display, "wayland-test");
        wl_global_create(m_display,
                         &hyprland_global_shortcuts_manager_v1_interface,
                         1,
                         this,
                         &FakeHyprland::bind);
        m_thread = std::thread([this] {
            while (!m_isEnding) {
                constexpr int moment = 5; // Milliseconds.
                wl_event_loop_dispatch(wl_display_get_event_loop(m_display), moment);
                const std::lock_guard lock(m_mutex);
                for (; m_presses > 0; --m_presses) {
                    for (const auto& [name, shortcut] : m_shortcuts) {
                        hyprland_global_shortcut_v1_send_pressed(shortcut, 0, 0, 0);
                        hyprland_global_shortcut_v1_send_released(shortcut, 0, 0, 0);
                    }
                }
                wl_display_flush_clients(m_display);
            }
        });
    }
    ~FakeHyprland()
    {
        m_isEnding = true;
        m_thread.join();
        wl_display_destroy_clients(m_display);
        wl_display_destroy(m_display);
    }
    FakeHyprland(const FakeHyprland&) = delete;
    FakeHyprland& operator=(const FakeHyprland&) = delete;

    /// Presses and releases what its configuration binds, which is all.
    void press()
    {
        const std::lock_guard lock(m_mutex);
        ++m_presses;
    }
    [[nodiscard]] QStringList names()
    {
        const std::lock_guard lock(m_mutex);
        QStringList names;
        for (const auto& [name, shortcut] : m_shortcuts) {
            names << name;
        }
        return names;
    }

private:
    static void bind(wl_client* client, void* data, uint32_t version, uint32_t id)
    {
        static const struct hyprland_global_shortcuts_manager_v1_interface calls
        {
            .register_shortcut = &FakeHyprland::take,
            .destroy = [](wl_client*, wl_resource* resource) {
                wl_resource_destroy(resource);
            }
        };
        wl_resource* manager = wl_resource_create(
            client, &hyprland_global_shortcuts_manager_v1_interface, static_cast<int>(version), id);
        wl_resource_set_implementation(manager, &calls, data, nullptr);
    }
    static void take(wl_client* client,
                     wl_resource* manager,
                     uint32_t number,
                     const char* id,
                     const char* application,
                     const char*,
                     const char*)
    {
        auto& self = *static_cast<FakeHyprland*>(wl_resource_get_user_data(manager));
        const std::lock_guard lock(self.m_mutex);
        const QString name = u"%1:%2"_s.arg(QLatin1String(application), QLatin1String(id));
        if (self.m_shortcuts.contains(name)) {
            wl_resource_post_error(
                manager, HYPRLAND_GLOBAL_SHORTCUTS_MANAGER_V1_ERROR_ALREADY_TAKEN, "taken");
            return;
        }
        static const struct hyprland_global_shortcut_v1_interface calls
        {
            .destroy = [](wl_client*, wl_resource* resource) {
                wl_resource_destroy(resource);
            }
        };
        wl_resource* shortcut
            = wl_resource_create(client, &hyprland_global_shortcut_v1_interface, 1, number);
        self.m_shortcuts[name] = shortcut;
        wl_resource_set_implementation(shortcut, &calls, &self, [](wl_resource* gone) {
            auto& owner = *static_cast<FakeHyprland*>(wl_resource_get_user_data(gone));
            const std::lock_guard ownerLock(owner.m_mutex);
            std::erase_if(owner.m_shortcuts,
                          [gone](const auto& each) { return each.second == gone; });
        });
    }

    wl_display* m_display = wl_display_create();
    std::mutex m_mutex;
    std::map<QString, wl_resource*> m_shortcuts;
    int m_presses = 0;
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};

} // namespace

class HyprlandTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(m_folder.path()));
        qputenv("WAYLAND_DISPLAY", "wayland-test");
    }

    void theLineIsOfferedUntilTheShortcutIsHeard()
    {
        FakeHyprland hyprland;
        MemoryUserDefaults userDefaults;
        QString told;
        const auto handlers = [&told] {
            return ShortcutSource::Handlers{.pressed = [&told] { told += u'P'; },
                                            .released = [&told] { told += u'R'; },
                                            .joined = {},
                                            .lost =
                                                [&told](int) {
                                                    told += u'L';
                                                }};
        };
        ShortcutPermission permission(HyprlandShortcuts::make(userDefaults),
                                      std::make_unique<FakeAccessibilityPermission>());
        ShortcutSource& shortcuts = permission.source();
        KeyEvents::HotKey hotKey{.keyCode = {},
                                 .modifierFlags = ModifierFlags::control | ModifierFlags::option};
        QVERIFY(shortcuts.bind(hotKey, handlers()) != 0);
        QVERIFY(permission.obstacle().isLiftedByPrompt);
        const QString line = u"bind = CTRL ALT, space, global, org.tavik.Launcher:summon"_s;
        QCOMPARE(permission.obstacle().command, line);
        hotKey.keyCode = 49;
        QCOMPARE(shortcuts.bind(hotKey, handlers()), 0);
        QTRY_COMPARE(hyprland.names(), QStringList{u"org.tavik.Launcher:summon"_s});
        QVERIFY(!permission.isTrusted() && !permission.obstacle().isLiftedByPrompt);
        QVERIFY(permission.obstacle().remedy.endsWith(line));
        hyprland.press();
        QTRY_COMPARE(told, u"PR"_s);
        QVERIFY(permission.isTrusted());

        // Whose name is taken loses its connection; the first keeps its own.
        const auto second = HyprlandShortcuts::make(userDefaults);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^The compositor's connection.*"_s));
        QCOMPARE(second->bind(hotKey, handlers()), 0);
        QVERIFY(second->serves()); // As it was heard before.
        QTRY_COMPARE(told, u"PRL"_s);
        QVERIFY(!second->serves() && second->status(hotKey) != 0);
        hyprland.press();
        QTRY_COMPARE(told, u"PRLPR"_s);

        hotKey.label = u"K"_s; // Other keys are another line.
        hotKey.keyCode = 40;
        QCOMPARE(shortcuts.bind(hotKey, handlers()), 0);
        QVERIFY(!permission.isTrusted());
        shortcuts.unbind();
        QTRY_VERIFY(hyprland.names().isEmpty());
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(HyprlandTest)
#include "HyprlandTest.moc"
