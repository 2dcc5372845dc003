// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Updater.h>

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <chrono>
#include <optional>

namespace Tavik {

/// The file that installs a version.
struct AppcastEnclosure
{
    QUrl url; ///< Empty when it may not be fetched.
    qint64 length = 0; ///< Bytes.
    QByteArray signature; ///< Ed25519 over the whole file, 64 bytes; empty when malformed.
    QByteArray digest; ///< SHA-256 of the whole file, 32 bytes; empty when malformed.
    QString mimeType;
    QString processor; ///< That the file is for, or "any".
    bool isForLinux = false; ///< By name; otherwise for any system.
    /// The maker has signed what is said here, the item's version included.
    bool isStated = false;
    /// Why the file must not be installed, as a whole sentence for people; absent when the above
    /// is complete.
    std::optional<QString> fault;

    bool operator==(const AppcastEnclosure&) const = default;
};

/// One item of the feed as it was written, after the checks that need no context: every URL is
/// absolute and of a scheme that may be fetched, every text bounded.
struct AppcastItem
{
    UpdateItem update;
    QString channel; ///< Empty for the default channel.
    QString minimumSystemVersion; ///< Empty for every system.
    QString maximumSystemVersion; ///< Empty for every system.
    QList<AppcastEnclosure> enclosures; ///< For this system or for any, in the feed's order.
    std::optional<std::chrono::seconds> phasedRolloutInterval;
    /// Critical only for versions below this one; empty: for all, where `isMarkedCritical`.
    QString criticalBelowVersion;
    bool isMarkedCritical = false;
    /// The versions for which the item is only information; empty: for all, where
    /// `isMarkedInformational`. A leading "<" means every version below.
    QStringList informationalVersions;
    bool isMarkedInformational = false;

    bool operator==(const AppcastItem&) const = default;
};

/// What a feed says; or why it cannot be read, as a whole sentence for people.
struct AppcastFeed
{
    QList<AppcastItem> items;
    std::optional<QString> error;
};

} // namespace Tavik
