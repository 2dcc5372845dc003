// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QObject>

namespace Tavik {

/// The keyboard where a program hears only what is meant for its own windows: those are listened to
/// as ever, and for the trigger the desktop listens. What a window system tells of other programs'
/// keys there is not the whole truth, and so counts for nothing while the desktop serves.
class ShortcutKeyEvents final : public QObject, public KeyEvents
{
public:
    struct Dependencies
    {
        MainQueue& mainQueue;
        ShortcutSource& source;
        /// How long after our window has got the keyboard the window system knows what is held;
        /// absent where it never does, because it is told of no key that the desktop took.
        std::optional<double> settlingSeconds;
    };

    /// `ownWindows` tells of the keys in our own windows, and takes hot keys where the desktop does
    /// not serve.
    ShortcutKeyEvents(const Dependencies& dependencies, std::unique_ptr<KeyEvents> ownWindows);
    ~ShortcutKeyEvents() override;

    [[nodiscard]] HotKeyResult registerHotKey(const HotKey& hotKey,
                                              HotKeyHandlers handlers) override;
    [[nodiscard]] int hotKeyStatus(const HotKey& hotKey) override;
    [[nodiscard]] bool hearsChords() const override { return m_dependencies.source.hearsChords(); }
    [[nodiscard]] Means triggerMeans(bool isChord) const override;
    [[nodiscard]] Means releaseMeans() const override;
    [[nodiscard]] bool hasKeys(quint64 modifierFlags,
                               std::optional<quint16> keyCode) const override;
    [[nodiscard]] std::unique_ptr<KeyMonitor> addLocalMonitor(Kind kind, Filter filter) override;
    [[nodiscard]] std::unique_ptr<KeyMonitor> addGlobalMonitor(Kind kind,
                                                               Observer observer) override;
    [[nodiscard]] std::unique_ptr<EventTap>
    createEventTap(Kind kind, Observer observer, std::function<void()> disabled) override;
    /// Absent while none of our windows has the keyboard.
    [[nodiscard]] std::optional<quint64> heldModifiers() override;
    [[nodiscard]] std::optional<quint16> keyCode(const NativeKey& key) const override;
    [[nodiscard]] std::optional<QString> characters(const NativeKey& key) const override;
    [[nodiscard]] LevelUse levelUse(const NativeKey& key) const override;

private:
    class Registration;
    class FocusMonitor;
    void focusChanged();

    Dependencies m_dependencies;
    std::unique_ptr<KeyEvents> m_ownWindows;
    Task m_settling;
    QList<FocusMonitor*> m_focusMonitors;
    bool m_knowsModifiers = false;
    bool m_isBound = false;
};

} // namespace Tavik
