// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

#include <chrono>

/// When to look for updates. By the wall clock, which goes on while the computer sleeps or is off.
namespace Tavik::UpdateSchedule {

struct History
{
    QDateTime lastCheck; ///< When the last attempt ended; invalid before the first.
    int failures = 0; ///< Scheduled checks that failed since the last one that did not.
};

struct Rhythm
{
    std::chrono::seconds interval{0};
    double jitter = 0; ///< 0 to below 1, drawn anew after each check: spreads many computers.
};

/// How long to wait for the next check, from `now`: 0 when it is due. A last check that lies well
/// in the future was dated by a clock that has been set back since; it does not count.
[[nodiscard]] std::chrono::seconds
waitFor(const History& history, const Rhythm& rhythm, const QDateTime& now);

} // namespace Tavik::UpdateSchedule
