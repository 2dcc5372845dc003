// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>

#include <QDBusConnection>
#include <QObject>

#include <optional>

class QDBusPendingCallWatcher;

namespace Tavik {

class WorkQueue;

/// The trigger as one of the global shortcuts of KDE, which its System Settings list and can
/// change. What the user has chosen there holds until another one is recorded here. Nothing tells
/// of modifiers without a key.
class KdeShortcuts final : public QObject, public ShortcutSource
{
    Q_OBJECT

public:
    explicit KdeShortcuts(WorkQueue& workQueue);
    ~KdeShortcuts() override;

    [[nodiscard]] bool hearsChords() const override { return false; }
    [[nodiscard]] bool hidesKeys() const override { return false; }
    [[nodiscard]] bool serves() const override { return m_fault == 0; }
    [[nodiscard]] Means means() const override;
    [[nodiscard]] bool awaitsConsent() const override { return m_fault == statusNoSuchKey; }
    [[nodiscard]] bool isRefused() const override { return m_fault == statusTaken; }
    [[nodiscard]] QString request() const override;
    int bind(const KeyEvents::HotKey& hotKey, Handlers handlers) override;
    void unbind() override;
    /// Waits for the service, for a moment.
    [[nodiscard]] int status(const KeyEvents::HotKey& hotKey) override;

private Q_SLOTS:
    void pressed(const QString& component, const QString& action);
    void released(const QString& component, const QString& action);

private:
    void opened(const QDBusConnection& bus);
    void ask();
    void answered(QDBusPendingCallWatcher* call);
    void lose(int status);

    std::optional<QDBusConnection> m_bus; ///< Present once it is open.
    std::optional<int> m_key; ///< What is asked for, in the toolkit's numbers.
    Handlers m_handlers;
    int m_fault = 0; ///< Why what was asked for last is not had.
    bool m_hasAsked = false;
};

} // namespace Tavik
