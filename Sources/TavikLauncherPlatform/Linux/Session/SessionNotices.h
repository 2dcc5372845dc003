// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Notices.h>

#include <QDBusConnection>
#include <QObject>

#include <map>
#include <optional>

namespace Tavik {

class WorkQueue;

/// Notices by the session bus (Desktop Notifications Specification 1.2).
class SessionNotices final : public QObject, public Notices
{
    Q_OBJECT

public:
    explicit SessionNotices(WorkQueue& workQueue);
    ~SessionNotices() override;

    void show(Subject subject, const Notice& notice) override;
    void withdraw(Subject subject) override;

private Q_SLOTS:
    void desktopChanged(const QString& service, const QString& before, const QString& now);
    void actionInvoked(uint id, const QString& action);
    void notificationClosed(uint id, uint reason);

private:
    struct Place
    {
        std::optional<Notice> wanted; ///< Until the user closes it.
        uint shown = 0; ///< The number that the desktop has given the notice; 0 for none.
        bool isAwaited = false; ///< The desktop has yet to say that number.
        bool isLost = false; ///< Whoever was asked for it has gone.
    };

    void listen(const QDBusConnection& bus);
    void send(Place& place);
    void close(Place& place);

    WorkQueue& m_workQueue;
    std::optional<QDBusConnection> m_bus; ///< Once there was something to show.
    std::map<Subject, Place> m_places;
};

} // namespace Tavik
