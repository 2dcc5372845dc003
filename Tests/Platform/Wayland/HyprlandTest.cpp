// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutPermission.h>
#include <TavikLauncherPlatform/Linux/Wayland/HyprlandShortcuts.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <Support/FakeKeyEvents.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/ShortcutStory.h>
#include <atomic>
#include <thread>

#include <wayland-hyprland-shortcuts-server.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

namespace {

/// A compositor with one of Hyprland's shortcuts and nothing else, on a thread of its own.
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
        m_thread = std::thread([this] { run(); });
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

    /// Presses and releases the keys that its configuration has for our shortcut.
    void press() { m_isPressed = true; }
    [[nodiscard]] bool knowsOurs() const { return m_shortcut; }

private:
    using Resource = wl_resource;

    void run()
    {
        while (!m_isEnding) {
            constexpr int moment = 5; // Milliseconds.
            wl_event_loop_dispatch(wl_display_get_event_loop(m_display), moment);
            if (m_shortcut && m_isPressed.exchange(false)) {
                hyprland_global_shortcut_v1_send_pressed(m_shortcut, 0, 0, 0);
                hyprland_global_shortcut_v1_send_released(m_shortcut, 0, 0, 0);
            }
            wl_display_flush_clients(m_display);
        }
    }
    static void end(wl_client*, Resource* resource) { wl_resource_destroy(resource); }
    static void bind(wl_client* client, void* data, uint32_t version, uint32_t id)
    {
        static const struct hyprland_global_shortcuts_manager_v1_interface calls
        {
            take, end
        };
        const auto* kind = &hyprland_global_shortcuts_manager_v1_interface;
        Resource* made = wl_resource_create(client, kind, static_cast<int>(version), id);
        wl_resource_set_implementation(made, &calls, data, nullptr);
    }
    static void take(wl_client* client,
                     Resource* manager,
                     uint32_t number,
                     const char* id,
                     const char* application,
                     const char*,
                     const char*)
    {
        auto& self = *static_cast<FakeHyprland*>(wl_resource_get_user_data(manager));
        const bool isOurs
            = qstrcmp(id, "summon") == 0 && qstrcmp(application, "org.tavik.Launcher") == 0;
        if (self.m_shortcut || !isOurs) {
            constexpr uint32_t taken = HYPRLAND_GLOBAL_SHORTCUTS_MANAGER_V1_ERROR_ALREADY_TAKEN;
            wl_resource_post_error(manager, taken, "taken");
            return;
        }
        static const struct hyprland_global_shortcut_v1_interface calls
        {
            end
        };
        self.m_shortcut
            = wl_resource_create(client, &hyprland_global_shortcut_v1_interface, 1, number);
        wl_resource_set_implementation(self.m_shortcut, &calls, &self, [](Resource* gone) {
            static_cast<FakeHyprland*>(wl_resource_get_user_data(gone))->m_shortcut = nullptr;
        });
    }

    wl_display* m_display = wl_display_create();
    std::atomic<Resource*> m_shortcut = nullptr;
    std::atomic<bool> m_isPressed = false;
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
        ShortcutStory story;
        ShortcutPermission permission(HyprlandShortcuts::make(userDefaults),
                                      std::make_unique<FakeAccessibilityPermission>());
        ShortcutSource& shortcuts = permission.source();
        QVERIFY(shortcuts.bind(chord, story.handlers()) != 0);
        QVERIFY(permission.obstacle().isLiftedByPrompt);
        const QString line = u"bind = CTRL ALT, space, global, org.tavik.Launcher:summon"_s;
        QCOMPARE(permission.obstacle().command, line);
        QCOMPARE(shortcuts.bind(chordAndSpace, story.handlers()), 0);
        QTRY_VERIFY(hyprland.knowsOurs());
        QVERIFY(!permission.isTrusted() && !permission.obstacle().isLiftedByPrompt);
        QVERIFY(permission.obstacle().remedy.endsWith(line));
        hyprland.press();
        QTRY_COMPARE(story.told, u"PR"_s);
        QVERIFY(permission.isTrusted());

        // Whose name is taken loses its connection; the first keeps its own.
        const auto second = HyprlandShortcuts::make(userDefaults);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"^The compositor's connection.*"_s));
        QCOMPARE(second->bind(chordAndSpace, story.handlers()), 0);
        QVERIFY(second->serves()); // As it was heard before.
        QTRY_COMPARE(story.told, u"PRL"_s);
        QVERIFY(!second->serves() && second->status(chordAndSpace) != 0);
        hyprland.press();
        QTRY_COMPARE(story.told, u"PRLPR"_s);

        QCOMPARE(shortcuts.bind(superK, story.handlers()), 0); // Other keys are another line.
        QVERIFY(!permission.isTrusted());
        shortcuts.unbind();
        QTRY_VERIFY(!hyprland.knowsOurs());
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(HyprlandTest)
#include "HyprlandTest.moc"
