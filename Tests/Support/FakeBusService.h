// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QThread>

#include <functional>

namespace Tavik::Test {

/// Somebody on the session bus, on a thread and a connection of its own, with an object at every
/// path. What it keeps is for `onItsThread`.
class FakeBusService : public QDBusVirtualObject
{
public:
    explicit FakeBusService(const QStringList& names)
    {
        moveToThread(&m_thread);
        m_thread.start();
        // Both connections off the main thread. There the toolkit holds back what comes before the
        // thread's next turn, and may then deliver it late. The program has turned long ago.
        onItsThread([&] {
            QDBusConnection::sessionBus();
            m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                  QStringLiteral("fake"));
            m_bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
            for (const QString& name : names) {
                m_bus.registerService(name);
            }
        });
    }
    ~FakeBusService() override
    {
        if (m_thread.isRunning()) {
            qFatal("A fake service must stop before its members go.");
        }
    }
    /// After all that it has been asked before.
    void onItsThread(const std::function<void()>& act)
    {
        QMetaObject::invokeMethod(this, act, Qt::BlockingQueuedConnection);
    }
    void send(const QDBusMessage& message)
    {
        onItsThread([&] { m_bus.send(message); });
    }
    template <typename T> [[nodiscard]] T copyOf(const T& kept)
    {
        T copy;
        onItsThread([&] { copy = kept; });
        return copy;
    }
    [[nodiscard]] QString introspect(const QString&) const override { return {}; }

protected:
    /// For each destructor: until then it may be asked something.
    void stop()
    {
        m_thread.quit();
        m_thread.wait();
    }

    QDBusConnection m_bus{QString()};

private:
    QThread m_thread;
};

} // namespace Tavik::Test
