// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Updates/TransferRate.h>

namespace Tavik {

namespace {
constexpr double windowSeconds = 4;
constexpr double shortestSeconds = 0.5;
constexpr double betweenSamples = 0.1;
} // namespace

void TransferRate::add(qint64 received, double time)
{
    // It may have started anew.
    if (!m_samples.empty() && received < m_samples.back().received) {
        m_samples.clear();
    }
    // The last one is kept up to date until it is old enough to be followed by another.
    if (m_samples.size() > 1
        && m_samples.back().time - m_samples.at(m_samples.size() - 2).time < betweenSamples) {
        m_samples.back() = {received, time};
    } else {
        m_samples.push_back({received, time});
    }
    while (m_samples.size() > 2 && m_samples.at(1).time <= time - windowSeconds) {
        m_samples.pop_front();
    }
}

std::optional<double> TransferRate::bytesPerSecond() const
{
    if (m_samples.empty()) {
        return std::nullopt;
    }
    const double seconds = m_samples.back().time - m_samples.front().time;
    if (seconds < shortestSeconds) {
        return std::nullopt;
    }
    return static_cast<double>(m_samples.back().received - m_samples.front().received) / seconds;
}

} // namespace Tavik
