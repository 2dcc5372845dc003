// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateRecord.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

const QString lastCheckKey = u"Updater.lastCheckTime"_s;
const QString failuresKey = u"Updater.failedChecks"_s;
const QString skippedVersionKey = u"Updater.skippedVersion"_s;
const QString newestSeenVersionKey = u"Updater.newestSeenVersion"_s;
const QString rolloutGroupKey = u"Updater.rolloutGroup"_s;

constexpr qlonglong mostFailures = 1000;
constexpr qlonglong lastSecond = 253'402'300'799; ///< Of the year 9999.
constexpr qsizetype longestVersion = 128;

} // namespace

UpdateRecord::UpdateRecord(UserDefaults& userDefaults, std::function<double()> random)
    : m_userDefaults(userDefaults)
    , m_random(std::move(random))
{ }

UpdateSchedule::History UpdateRecord::history() const
{
    UpdateSchedule::History history;
    const qlonglong seconds = m_userDefaults.integerValue(lastCheckKey).value_or(0);
    if (seconds > 0 && seconds <= lastSecond) {
        history.lastCheck = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
    }
    const qlonglong failures = m_userDefaults.integerValue(failuresKey).value_or(0);
    history.failures = static_cast<int>(std::clamp(failures, 0LL, mostFailures));
    return history;
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

QString UpdateRecord::newestSeenVersion() const
{
    return version(newestSeenVersionKey);
}

void UpdateRecord::setNewestSeenVersion(const QString& version)
{
    setVersion(newestSeenVersionKey, version);
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
