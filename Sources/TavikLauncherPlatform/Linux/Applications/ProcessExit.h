// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace Tavik {

/// Tells when a process, not necessarily a child, has exited. Stays silent on a kernel that cannot
/// tell. Main thread only.
class ProcessExit
{
public:
    ProcessExit(qint64 processId, std::function<void()> exited);
    ~ProcessExit();
    ProcessExit(const ProcessExit&) = delete;
    ProcessExit& operator=(const ProcessExit&) = delete;

private:
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Tavik
