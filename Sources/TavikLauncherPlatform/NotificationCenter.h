// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>

namespace Tavik {

class NotificationCenter;

/// Ends an observation when destroyed or reassigned. May outlive its centre.
class ObserverToken
{
public:
    ObserverToken() = default;
    ~ObserverToken() { reset(); }
    ObserverToken(ObserverToken&& other) noexcept { *this = std::move(other); }
    ObserverToken& operator=(ObserverToken&& other) noexcept;
    ObserverToken(const ObserverToken&) = delete;
    ObserverToken& operator=(const ObserverToken&) = delete;

    void reset();

private:
    friend class NotificationCenter;
    ObserverToken(QObject* registry, quint64 id);

    QPointer<QObject> m_registry; ///< Null once the centre is gone.
    quint64 m_id = 0;
};

/// Named notifications, delivered synchronously in the order of registration. An observer may be
/// added or removed while a notification is being delivered; an added one is not called by the
/// delivery under way. Main thread only.
class NotificationCenter
{
public:
    /// What is handed to an observer: the notification's name and an optional text that says what
    /// it is about (an application's bundle path, for the workspace's notifications).
    struct Notification
    {
        QString name;
        QString subject;
    };
    using Handler = std::function<void(const Notification&)>;

    NotificationCenter();
    ~NotificationCenter();
    NotificationCenter(const NotificationCenter&) = delete;
    NotificationCenter& operator=(const NotificationCenter&) = delete;

    [[nodiscard]] ObserverToken addObserver(QStringView name, Handler handler);
    void post(QStringView name, const QString& subject = {});
    /// The names that are being observed, in the order of registration; one that several observe is
    /// there as often.
    [[nodiscard]] QStringList observedNames() const;

private:
    friend class ObserverToken;
    class Registry;
    std::unique_ptr<Registry> m_registry;
};

} // namespace Tavik
