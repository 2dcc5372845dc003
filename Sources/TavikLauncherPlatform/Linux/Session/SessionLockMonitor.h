// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/SessionLock.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QSet>

namespace Tavik {

class WorkQueue;

/// Follows what the login manager and the desktop's screen saver say about the lock. Nothing here
/// waits for a bus; until one has answered, and without any, the session counts as open.
class SessionLockMonitor final : public QObject, public SessionLock
{
    Q_OBJECT

public:
    /// `isInputTaken` asks the window system.
    SessionLockMonitor(WorkQueue& workQueue, std::function<bool()> isInputTaken);

    [[nodiscard]] bool isLocked() const override;
    [[nodiscard]] bool isInputTaken() const override { return m_isInputTaken(); }

private Q_SLOTS:
    void screenSaverChanged(bool isActive, const QDBusMessage& message);
    void sessionChanged(const QDBusMessage& message);

private:
    void followScreenSavers(const QDBusConnection& bus);
    void setScreenSaverActive(const QString& sender, bool isActive);
    void followLoginSession(const QDBusConnection& bus, const QString& id);
    void askLockedHint(const QDBusConnection& bus, const QString& path);
    /// Makes a change and tells when it locks.
    void change(const std::function<void()>& step);

    std::function<bool()> m_isInputTaken;
    QSet<QString> m_activeScreenSavers; ///< Their names on the session bus.
    bool m_lockedHint = false;
    QDBusServiceWatcher m_senders; ///< Of `m_activeScreenSavers`.
};

} // namespace Tavik
