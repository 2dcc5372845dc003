// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/LaunchHints.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Settings/SettingsBackup.h>
#include <TavikLauncher/Settings/ThemePreset.h>
#include <TavikLauncherPlatform/LoginItem.h>
#include <TavikLauncherPlatform/NotificationCenter.h>
#include <TavikLauncherPlatform/Texts.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <QSet>

#include <algorithm>
#include <utility>
#include <vector>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

QSet<QString> setOf(const QStringList& paths)
{
    return {paths.begin(), paths.end()};
}

/// `paths` without those in `removed`; absent when that changes nothing.
std::optional<QStringList> without(const QSet<QString>& removed, QStringList paths)
{
    const auto count = paths.removeIf([&](const QString& path) { return removed.contains(path); });
    return count > 0 ? std::optional(std::move(paths)) : std::nullopt;
}

} // namespace

LauncherSettings::LauncherSettings(UserDefaults& defaults,
                                   LoginItem& loginItem,
                                   NotificationCenter& notifications,
                                   QObject* parent)
    : QObject(parent)
    , m_loginItem(loginItem)
    , m_notifications(notifications)
    , m_table(defaults, [this](const QString& name, QStringView notification) {
        Q_EMIT propertyChanged(name);
        if (!notification.isEmpty()) {
            m_notifications.post(notification);
        }
    })
{
    completePinnedPaths();
    readLoginItem();
}

/// Gives every permanent application a place in the pinned order.
void LauncherSettings::completePinnedPaths()
{
    QStringList pinned = userDefaults().stringArrayValue(pinnedPermanentAppPaths.key())
        ? pinnedPermanentAppPaths()
        : pinnedPathsOfLegacySlots();
    pinned.removeDuplicates();
    const auto complete = pinned.size();
    QSet<QString> known = setOf(pinned);
    for (const QString& path : permanentAppPaths()) {
        if (!known.contains(path)) {
            known.insert(path);
            pinned.append(path);
        }
    }
    const bool wasIncomplete = pinned.size() > complete;
    pinnedPermanentAppPaths.amend(std::move(pinned));
    if (wasIncomplete) {
        userDefaults().setObject(pinnedPermanentAppPaths.key(), pinnedPermanentAppPaths.stored());
    }
}

/// Earlier versions kept a slot number for each permanent application.
QStringList LauncherSettings::pinnedPathsOfLegacySlots() const
{
    const auto slotNumbers
        = userDefaults().dictionaryValue(u"LauncherSettings.permanentAppSlots"_s);
    if (!slotNumbers) {
        return {};
    }
    const QSet<QString> permanent = setOf(permanentAppPaths());
    std::vector<std::pair<int, QString>> pathsBySlot;
    for (auto slot = slotNumbers->begin(); slot != slotNumbers->end(); ++slot) {
        const auto number = StoredValue::decoded<int>(slot.value());
        if (!number) {
            return {};
        }
        if (permanent.contains(slot.key())) {
            pathsBySlot.emplace_back(*number, slot.key());
        }
    }
    std::ranges::sort(pathsBySlot);
    QStringList paths;
    for (const auto& [number, path] : pathsBySlot) {
        paths.append(path);
    }
    return paths;
}

QStringList LauncherSettings::effectivePinnedAppPaths() const
{
    const QSet<QString> permanent = setOf(permanentAppPaths());
    QStringList paths = pinnedPermanentAppPaths();
    paths.removeIf([&](const QString& path) { return !permanent.contains(path); });
    return paths;
}

void LauncherSettings::addPermanentApp(const QString& path)
{
    if (permanentAppPaths().contains(path)) {
        return;
    }
    permanentAppPaths.set(permanentAppPaths() + QStringList{path});
    if (!pinnedPermanentAppPaths().contains(path)) {
        pinnedPermanentAppPaths.set(pinnedPermanentAppPaths() + QStringList{path});
    }
}

void LauncherSettings::removePermanentApps(const QStringList& paths)
{
    const QSet<QString> removed = setOf(paths);
    if (auto permanent = without(removed, permanentAppPaths())) {
        permanentAppPaths.set(*std::move(permanent));
    }
    if (auto pinned = without(removed, pinnedPermanentAppPaths())) {
        pinnedPermanentAppPaths.set(*std::move(pinned));
    }
}

void LauncherSettings::resetRingLayout()
{
    ringDiameter.set(ringDiameter.initialValue());
    ringThickness.set(ringThickness.initialValue());
    iconSize.set(iconSize.initialValue());
    maxVisibleApps.set(maxVisibleApps.initialValue());
}

void LauncherSettings::applyTheme(const ThemePreset& preset)
{
    ringColorHex.set(preset.ringColorHex);
    ringOpacity.set(preset.ringOpacity);
    highlightColorHex.set(preset.highlightColorHex);
    highlightOpacity.set(preset.highlightOpacity);
    pillOpacity.set(preset.pillOpacity);
}

std::optional<QString> LauncherSettings::launchHintForThisSummon()
{
    return LaunchHints::nextHint(userDefaults(),
                                 {.showsLaunchHints = showsLaunchHints(),
                                  .keepsCenterHintVisible = keepsCenterHintVisible(),
                                  .interval = launchHintInterval()});
}

void LauncherSettings::launchHintWasNotSeen(const QString& hint)
{
    LaunchHints::takeBack(userDefaults(), hint);
}

QByteArray LauncherSettings::exportBackup() const
{
    return SettingsBackup::exported(*this);
}

std::optional<ImportSummary> LauncherSettings::applyBackup(const QByteArray& contents,
                                                           const FileManager& fileManager)
{
    return SettingsBackup::apply(*this, contents, fileManager);
}

void LauncherSettings::setLaunchesAtLogin(bool launches)
{
    const bool isDone = launches ? m_loginItem.registerItem() : m_loginItem.unregisterItem();
    refreshLaunchAtLoginStatus();
    if (!isDone) {
        m_launchAtLoginMessage = Texts::tr("Launch at login could not be changed from this build.");
        Q_EMIT propertyChanged(u"launchAtLoginMessage"_s);
    }
}

void LauncherSettings::refreshLaunchAtLoginStatus()
{
    readLoginItem();
    Q_EMIT propertyChanged(u"launchesAtLogin"_s);
    Q_EMIT propertyChanged(u"launchAtLoginMessage"_s);
}

void LauncherSettings::readLoginItem()
{
    using enum LoginItem::Status;
    const LoginItem::Status status = m_loginItem.status();
    m_launchesAtLogin = status == enabled || status == requiresApproval;
    m_launchAtLoginMessage.reset();
    if (status == requiresApproval) {
        m_launchAtLoginMessage
            = Texts::tr("Enable Tavik Launcher in System Settings > Login Items to finish setup.");
    }
}

} // namespace Tavik
