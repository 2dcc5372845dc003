// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateSchedule.h>

#include <algorithm>

namespace Tavik::UpdateSchedule {

namespace {

using namespace std::chrono_literals;
using std::chrono::seconds;

constexpr seconds firstRetry = 15min;
constexpr int mostDoublings = 12; ///< More than the longest interval.
constexpr seconds largestCorrection = 1h; ///< Of a clock that goes wrong a little.
constexpr seconds mostJitter = 1h;
constexpr int jitterPartOfInterval = 20;

seconds retryAfter(int failures)
{
    return firstRetry * (1 << std::clamp(failures - 1, 0, mostDoublings));
}

} // namespace

seconds waitFor(const History& history, const Rhythm& rhythm, const QDateTime& now)
{
    const seconds sinceLast(history.lastCheck.secsTo(now));
    if (!history.lastCheck.isValid() || sinceLast < -largestCorrection) {
        return 0s;
    }
    const seconds pause = history.failures > 0
        ? std::min(retryAfter(history.failures), rhythm.interval)
        : rhythm.interval;
    const seconds spread = std::min(pause / jitterPartOfInterval, mostJitter);
    const auto jitter = std::chrono::duration_cast<seconds>(spread * rhythm.jitter);
    return std::max(pause + jitter - sinceLast, 0s);
}

} // namespace Tavik::UpdateSchedule
