// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Notices.h>

#include <QDBusConnection>
#include <QObject>

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

    void show(const QString& text, std::function<void()> chosen) override;
    void withdraw() override;

private Q_SLOTS:
    void actionInvoked(uint id, const QString& action);
    void notificationClosed(uint id, uint reason);

private:
    void listen(const QDBusConnection& bus);
    void send();
    void close();

    WorkQueue& m_workQueue;
    std::optional<QDBusConnection> m_bus; ///< Once there was something to show.
    QString m_text; ///< What is to be shown; empty for nothing.
    std::function<void()> m_chosen;
    uint m_shown = 0; ///< The number that the desktop has given the notice; 0 for none.
};

} // namespace Tavik
