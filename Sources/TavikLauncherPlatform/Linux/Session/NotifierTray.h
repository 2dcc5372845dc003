// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

class QDBusServiceWatcher;

namespace Tavik {

class WorkQueue;

/// Whether somebody on the session bus shows status items that are described to it. Nothing here
/// waits for the bus; until it has answered, and without one, nobody does.
class NotifierTray final : public QObject
{
    Q_OBJECT

public:
    explicit NotifierTray(WorkQueue& workQueue);
    ~NotifierTray() override;

    [[nodiscard]] bool hasHost() const { return m_hasHost; }

    /// Called when the answer has changed.
    std::function<void()> onChanged;

private Q_SLOTS:
    void ask();

private:
    void listen(const QDBusConnection& bus);
    void take(bool hasHost);

    std::optional<QDBusConnection> m_bus;
    std::unique_ptr<QDBusServiceWatcher> m_owner;
    std::unique_ptr<QDBusPendingCallWatcher> m_question;
    bool m_asksAgain = false; ///< Something has changed since the question was put.
    bool m_hasHost = false;
};

} // namespace Tavik
