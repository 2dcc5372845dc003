// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <deque>
#include <optional>

namespace Tavik {

/// How fast something arrives, over the last few seconds. Times are seconds of the system's uptime.
class TransferRate
{
public:
    /// So many bytes in all have arrived by `time`.
    void add(qint64 received, double time);
    /// Absent until it has been watched for a moment.
    [[nodiscard]] std::optional<double> bytesPerSecond() const;

private:
    struct Sample
    {
        qint64 received = 0;
        double time = 0;
    };
    std::deque<Sample> m_samples;
};

} // namespace Tavik
