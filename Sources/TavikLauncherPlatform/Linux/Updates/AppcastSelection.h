// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/Appcast.h>

#include <QDateTime>

namespace Tavik::AppcastSelection {

/// The number of groups that a phased rollout reaches one after the other.
constexpr int rolloutGroups = 7;

/// What the choice depends on besides the feed.
struct Circumstances
{
    QString runningVersion;
    /// Of the kernel, as QSysInfo::kernelVersion() tells it: the one version that every Linux
    /// system has.
    QString systemVersion;
    bool userInitiated = false; ///< The user asked: neither skipping nor a phased rollout counts.
    QDateTime now;
    QString skippedVersion; ///< That the user wants no reminder of; empty without.
    int rolloutGroup = 0; ///< Of this computer, 0 to `rolloutGroups` - 1.
    QString newestSeenVersion; ///< Signed, of all feeds so far; empty at first.
    /// What can be installed here, as `updateKindName` tells it.
    QStringList kinds;
    QString processor; ///< Of this program.
    QStringList pageHosts; ///< Where a page about a version may be.
};

/// A version to be offered.
struct Offer
{
    UpdateItem update; ///< With `isCritical` and `isInformationOnly` as they are for us.
    std::optional<AppcastEnclosure> enclosure; ///< Absent when it is information only.

    bool operator==(const Offer&) const = default;
};

struct Selection
{
    std::optional<Offer> offer;
    /// Without an offer: why, in whole sentences for people.
    QString reason;
    /// Without an offer: something is wrong with the feed, so that `reason` is an error and no
    /// answer.
    bool isRefused = false;
    /// To be remembered as `newestSeenVersion`: what nobody has signed does not count.
    QString newestSeenVersion;
};

/// The newest item of the default channel that is newer than the running version, fits the system
/// and is due, with the first of its files that can be installed here; one that is for Linux by
/// name goes before one for any system. A critical item is neither skipped nor held back. Refused:
/// a feed whose newest signed version is older than one seen before, and a version whose file must
/// not be installed.
[[nodiscard]] Selection select(const QList<AppcastItem>& items, const Circumstances& circumstances);

} // namespace Tavik::AppcastSelection
