// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class QDBusConnection;

namespace Tavik {

class WorkQueue;

/// Tells when the machine is about to sleep, as the login manager announces it. Without a system
/// bus or a login manager nothing is ever told.
class SleepMonitor final : public QObject
{
    Q_OBJECT

public:
    SleepMonitor(WorkQueue& workQueue, std::function<void()> willSleep);

private Q_SLOTS:
    void prepareForSleep(bool starts);

private:
    std::function<void()> m_willSleep;
};

} // namespace Tavik
