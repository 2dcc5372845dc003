// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Updates/UpdateSchedule.h>

#include <QString>

#include <functional>

namespace Tavik {

class UserDefaults;

/// What the updater remembers between two runs of the program, in the user defaults. What is stored
/// there and makes no sense counts as not stored.
class UpdateRecord
{
public:
    /// `random` gives numbers from 0 to below 1.
    UpdateRecord(UserDefaults& userDefaults, std::function<double()> random);

    [[nodiscard]] UpdateSchedule::History history() const;
    void setHistory(const UpdateSchedule::History& history);

    /// The version that the user wants no reminder of; empty without.
    [[nodiscard]] QString skippedVersion() const;
    void setSkippedVersion(const QString& version);

    /// The newest version that a feed has named; empty before the first, and when no feed has
    /// confirmed it for two months: a wrong one must not shut out all that follow for good.
    [[nodiscard]] QString newestSeenVersion(const QDateTime& now) const;
    void setNewestSeenVersion(const QString& version, const QDateTime& now);

    /// Which part of a phased rollout this computer belongs to. Drawn once.
    [[nodiscard]] int rolloutGroup();

private:
    [[nodiscard]] QDateTime time(const QString& key) const; ///< Invalid without.
    [[nodiscard]] QString version(const QString& key) const;
    void setVersion(const QString& key, const QString& version);

    UserDefaults& m_userDefaults;
    std::function<double()> m_random;
};

} // namespace Tavik
