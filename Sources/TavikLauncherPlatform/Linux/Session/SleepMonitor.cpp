// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/SessionBus.h>
#include <TavikLauncherPlatform/Linux/Session/SleepMonitor.h>

#include <QDBusConnection>

#include <utility>

namespace Tavik {

SleepMonitor::SleepMonitor(WorkQueue& workQueue, std::function<void()> willSleep)
    : m_willSleep(std::move(willSleep))
{
    SessionBus::openSystemBus(workQueue, this, [this](QDBusConnection bus) {
        // No service name in the match: with one the toolkit would wait for the bus to name its
        // owner.
        bus.connect(QString(),
                    QStringLiteral("/org/freedesktop/login1"),
                    QStringLiteral("org.freedesktop.login1.Manager"),
                    QStringLiteral("PrepareForSleep"),
                    this,
                    SLOT(prepareForSleep(bool)));
    });
}

void SleepMonitor::prepareForSleep(bool starts)
{
    if (starts) {
        m_willSleep();
    }
}

} // namespace Tavik
