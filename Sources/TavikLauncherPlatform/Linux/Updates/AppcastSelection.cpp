// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastVersion.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tavik::AppcastSelection {

namespace {

bool isOlder(QStringView left, QStringView right)
{
    return std::is_lt(AppcastVersion::compare(left, right));
}

bool isCritical(const AppcastItem& item, const Circumstances& circumstances)
{
    return item.isMarkedCritical
        && (item.criticalBelowVersion.isEmpty()
            || isOlder(circumstances.runningVersion, item.criticalBelowVersion));
}

bool isInformationOnly(const AppcastItem& item, const Circumstances& circumstances)
{
    if (!item.enclosure) {
        return true;
    }
    if (!item.isMarkedInformational) {
        return false;
    }
    const auto includes = [&](const QString& version) {
        return version.startsWith(u'<')
            ? isOlder(circumstances.runningVersion, QStringView(version).sliced(1))
            : std::is_eq(AppcastVersion::compare(circumstances.runningVersion, version));
    };
    return item.informationalVersions.isEmpty()
        || std::ranges::any_of(item.informationalVersions, includes);
}

QString product(const AppcastItem& item)
{
    return u"Tavik Launcher "_s + item.update.displayVersionString;
}

/// Why this computer cannot run the version.
std::optional<QString> whyNotFitting(const AppcastItem& item, const Circumstances& circumstances)
{
    const QString& system = circumstances.systemVersion;
    if (isOlder(system, item.minimumSystemVersion)) {
        return u"%1 is available, but it needs Linux %2 or newer. This computer runs Linux %3."_s
            .arg(product(item), item.minimumSystemVersion, system);
    }
    if (!item.maximumSystemVersion.isEmpty() && isOlder(item.maximumSystemVersion, system)) {
        return u"%1 is available, but not for systems newer than Linux %2. This computer runs Linux %3."_s
            .arg(product(item), item.maximumSystemVersion, system);
    }
    return {};
}

/// Why the schedule keeps the version back; for a user who asks nothing is kept back.
std::optional<QString> whyNotDue(const AppcastItem& item, const Circumstances& circumstances)
{
    if (circumstances.userInitiated || isCritical(item, circumstances)) {
        return {};
    }
    const QString& skipped = circumstances.skippedVersion;
    if (!skipped.isEmpty() && !isOlder(skipped, item.update.versionString)) {
        return u"You chose to skip %1."_s.arg(product(item));
    }
    // A rollout is counted from the date of the item; without one everybody's turn has come.
    if (item.phasedRolloutInterval && item.update.date.isValid()) {
        const auto wait = *item.phasedRolloutInterval
            * std::clamp(circumstances.rolloutGroup, 0, rolloutGroups - 1);
        if (circumstances.now < item.update.date.addSecs(wait.count())) {
            return u"%1 is being handed out step by step and will come to this computer later."_s
                .arg(product(item));
        }
    }
    return {};
}

/// The newest of the default channel, the first among equals; null without any.
const AppcastItem* newestOf(const QList<AppcastItem>& items)
{
    const AppcastItem* newest = nullptr;
    for (const AppcastItem& item : items) {
        if (item.channel.isEmpty()
            && (newest == nullptr
                || isOlder(newest->update.versionString, item.update.versionString))) {
            newest = &item;
        }
    }
    return newest;
}

Selection offered(const AppcastItem& item, const Circumstances& circumstances)
{
    Offer offer{.update = item.update, .enclosure = item.enclosure};
    offer.update.isCritical = isCritical(item, circumstances);
    offer.update.isInformationOnly = isInformationOnly(item, circumstances);
    if (offer.update.isInformationOnly) {
        offer.enclosure.reset();
        if (offer.update.infoUrl.isEmpty()) {
            return {.reason = u"%1 is available, but there is no page to read about it."_s.arg(
                        product(item)),
                    .isRefused = true};
        }
        return {.offer = offer};
    }
    if (item.enclosure->fault) {
        return {.reason = u"%1 is available. %2"_s.arg(product(item), *item.enclosure->fault),
                .isRefused = true};
    }
    offer.update.contentLength = item.enclosure->length;
    return {.offer = offer};
}

Selection upToDate(const AppcastItem& newest, const Circumstances& circumstances)
{
    if (isOlder(newest.update.versionString, circumstances.runningVersion)) {
        return {
            .reason
            = u"You're up to date. Tavik Launcher %1 is newer than the newest on offer, %2."_s.arg(
                circumstances.runningVersion, newest.update.displayVersionString)};
    }
    return {.reason = u"You're up to date. %1 is the newest version."_s.arg(product(newest))};
}

/// The newest item that is newer than the running version and suits; or why there is none.
Selection choose(const QList<AppcastItem>& items,
                 const AppcastItem& newest,
                 const Circumstances& circumstances)
{
    if (!isOlder(circumstances.runningVersion, newest.update.versionString)) {
        return upToDate(newest, circumstances);
    }
    QList<AppcastItem> suitable;
    std::optional<QString> why;
    QString whyOf;
    for (const AppcastItem& item : items) {
        const QString& version = item.update.versionString;
        if (!item.channel.isEmpty() || !isOlder(circumstances.runningVersion, version)) {
            continue;
        }
        std::optional<QString> fault = whyNotFitting(item, circumstances);
        if (!fault) {
            fault = whyNotDue(item, circumstances);
        }
        if (!fault) {
            suitable.append(item);
        } else if (!why || isOlder(whyOf, version)) {
            why = fault;
            whyOf = version;
        }
    }
    const AppcastItem* best = newestOf(suitable);
    return best != nullptr ? offered(*best, circumstances)
                           : Selection{.reason = why.value_or(QString())};
}

} // namespace

Selection select(const QList<AppcastItem>& items, const Circumstances& circumstances)
{
    const QString& seen = circumstances.newestSeenVersion;
    const AppcastItem* newest = newestOf(items);
    if (newest == nullptr) {
        return {.reason = u"The list of updates has no version for this computer."_s,
                .isRefused = true,
                .newestSeenVersion = seen};
    }
    if (isOlder(newest->update.versionString, seen)) {
        return {.reason
                = u"The list of updates is older than one seen before: its newest version is %1, "
                  "but %2 was there already. Nothing is installed from it."_s.arg(
                      newest->update.displayVersionString, seen),
                .isRefused = true,
                .newestSeenVersion = seen};
    }
    Circumstances current = circumstances;
    if (isOlder(newest->update.versionString, current.skippedVersion)) {
        current.skippedVersion.clear(); // It was taken back, and says nothing about others.
    }
    Selection selection = choose(items, *newest, current);
    selection.newestSeenVersion = newest->update.versionString;
    return selection;
}

} // namespace Tavik::AppcastSelection
