// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tavik {

/// A file that one process at a time may hold. The system gives it up with the process, however
/// that ends; the file stays.
class ProcessLock
{
public:
    enum class Result {
        taken,
        busy, ///< Another process holds it.
        unavailable, ///< The file cannot be made or locked.
    };

    ProcessLock() = default;
    ~ProcessLock() { release(); }
    ProcessLock(const ProcessLock&) = delete;
    ProcessLock& operator=(const ProcessLock&) = delete;

    [[nodiscard]] bool isHeld() const { return m_file >= 0; }
    /// Does not wait.
    [[nodiscard]] Result tryToTake(const QString& path);
    void release();

private:
    int m_file = -1;
};

} // namespace Tavik
