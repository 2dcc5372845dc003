// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateRecord.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

const QString lastCheckKey = u"Updater.lastCheckTime"_s;
const QString failuresKey = u"Updater.failedChecks"_s;
const QString skippedVersionKey = u"Updater.skippedVersion"_s;
const QString newestSeenVersionKey = u"Updater.newestSeenVersion"_s;
const QString newestSeenTimeKey = u"Updater.newestSeenTime"_s;
const QString rolloutGroupKey = u"Updater.rolloutGroup"_s;

constexpr qlonglong mostFailures = 1000;
constexpr qlonglong lastSecond = 253'402'300'799; ///< Of the year 9999.
constexpr qsizetype longestVersion = 128;
constexpr qint64 seenCountsForSeconds = 60LL * 24 * 3600; ///< Twice the longest interval.

} // namespace

UpdateRecord::UpdateRecord(UserDefaults& userDefaults, std::function<double()> random)
    : m_userDefaults(userDefaults)
    , m_random(std::move(random))
{ }

UpdateSchedule::History UpdateRecord::history() const
{
    const qlonglong failures = m_userDefaults.integerValue(failuresKey).value_or(0);
    return {.lastCheck = time(lastCheckKey),
            .failures = static_cast<int>(std::clamp(failures, 0LL, mostFailures))};
}

void UpdateRecord::setHistory(const UpdateSchedule::History& history)
{
    m_userDefaults.setObject(lastCheckKey, history.lastCheck.toSecsSinceEpoch());
    m_userDefaults.setObject(failuresKey,
                             history.failures > 0 ? qlonglong(history.failures) : QVariant());
}

QString UpdateRecord::skippedVersion() const
{
    return version(skippedVersionKey);
}

void UpdateRecord::setSkippedVersion(const QString& version)
{
    setVersion(skippedVersionKey, version);
}

QString UpdateRecord::newestSeenVersion(const QDateTime& now) const
{
    const QDateTime seen = time(newestSeenTimeKey);
    // A date in the future says nothing.
    const bool counts = seen.isValid() && std::abs(seen.secsTo(now)) < seenCountsForSeconds;
    return counts ? version(newestSeenVersionKey) : QString();
}

void UpdateRecord::setNewestSeenVersion(const QString& version, const QDateTime& now)
{
    setVersion(newestSeenVersionKey, version);
    m_userDefaults.setObject(newestSeenTimeKey, now.toSecsSinceEpoch());
}

int UpdateRecord::rolloutGroup()
{
    constexpr int groups = AppcastSelection::rolloutGroups;
    const qlonglong stored = m_userDefaults.integerValue(rolloutGroupKey).value_or(-1);
    if (stored >= 0 && stored < groups) {
        return static_cast<int>(stored);
    }
    const int drawn = std::clamp(static_cast<int>(m_random() * groups), 0, groups - 1);
    m_userDefaults.setObject(rolloutGroupKey, qlonglong(drawn));
    return drawn;
}

QDateTime UpdateRecord::time(const QString& key) const
{
    const qlonglong seconds = m_userDefaults.integerValue(key).value_or(0);
    return seconds > 0 && seconds <= lastSecond ? QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC)
                                                : QDateTime();
}

QString UpdateRecord::version(const QString& key) const
{
    const QString stored = m_userDefaults.stringValue(key).value_or(QString());
    return stored.size() <= longestVersion ? stored : QString();
}

void UpdateRecord::setVersion(const QString& key, const QString& version)
{
    m_userDefaults.setObject(key, version.isEmpty() ? QVariant() : version);
}

} // namespace Tavik
