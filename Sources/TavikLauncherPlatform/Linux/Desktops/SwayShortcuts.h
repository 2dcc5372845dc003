// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayBindings.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayConnection.h>

#include <QStringList>

#include <optional>

class QJsonArray;
class QJsonObject;

namespace Tavik {

/// The trigger as bindings that sway is given while it runs: nothing is written into its
/// configuration. They do nothing by themselves, but sway tells of every binding that it runs.
/// Reading its configuration anew, it forgets them, and is given them again.
class SwayShortcuts final : public ShortcutSource
{
public:
    explicit SwayShortcuts(const QString& socketPath);
    ~SwayShortcuts() override;
    SwayShortcuts(const SwayShortcuts&) = delete;
    SwayShortcuts& operator=(const SwayShortcuts&) = delete;

    [[nodiscard]] bool hearsChords() const override { return true; }
    [[nodiscard]] bool hidesKeys() const override { return true; }
    [[nodiscard]] bool serves() const override { return m_sway.isOpen() && !m_isRefused; }
    /// Lacks the binding of the user's own that has the same keys.
    [[nodiscard]] Means means() const override;
    [[nodiscard]] bool tellsReleases() const override { return true; }
    [[nodiscard]] bool isRefused() const override { return m_sway.isOpen() && m_isRefused; }
    int bind(const KeyEvents::HotKey& hotKey, Handlers handlers) override;
    void unbind() override;
    /// Also tells of what the user's own configuration has there, which `bind` puts to rest.
    [[nodiscard]] int status(const KeyEvents::HotKey& hotKey) override;

private:
    /// What the bindings are called, each with its command: in all orders of a chord's keys.
    [[nodiscard]] static QStringList keysOf(const KeyEvents::HotKey& hotKey);
    /// Why the shortcut cannot be had at all, or 0.
    [[nodiscard]] int refusal(const KeyEvents::HotKey& hotKey) const;
    void giveBindings();
    void receive(quint32 type, const QJsonDocument& message);
    void checkOutcome(const QJsonArray& results);
    void bindingRan(const QJsonObject& binding);
    void lose(int status);

    SwayConnection m_sway;
    SwayBindings m_own; ///< Of the user.
    std::optional<KeyEvents::HotKey> m_bound;
    Handlers m_handlers;
    QList<bool> m_asked; ///< For each command that is not answered yet: whether it gives bindings.
    bool m_isRefused = false;
};

} // namespace Tavik
