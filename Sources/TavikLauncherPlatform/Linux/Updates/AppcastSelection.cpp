// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastSelection.h>
#include <TavikLauncherPlatform/Linux/Updates/AppcastVersion.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateKind.h>
#include <TavikLauncherPlatform/Texts.h>

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
    if (item.enclosures.isEmpty()) {
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
        return Texts::tr(
                   "%1 is available, but it needs Linux %2 or newer. This computer runs Linux %3.")
            .arg(product(item), item.minimumSystemVersion, system);
    }
    if (!item.maximumSystemVersion.isEmpty() && isOlder(item.maximumSystemVersion, system)) {
        return Texts::tr("%1 is available, but not for systems newer than Linux %2. This computer "
                         "runs Linux %3.")
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
        return Texts::tr("You chose to skip %1.").arg(product(item));
    }
    // A rollout is counted from the date of the item; without one everybody's turn has come.
    if (item.phasedRolloutInterval && item.update.date.isValid()) {
        const auto wait = *item.phasedRolloutInterval
            * std::clamp(circumstances.rolloutGroup, 0, rolloutGroups - 1);
        if (circumstances.now < item.update.date.addSecs(wait.count())) {
            return Texts::tr(
                       "%1 is being handed out step by step and will come to this computer later.")
                .arg(product(item));
        }
    }
    return {};
}

/// Whether any of its files says with a signature which version it is.
bool isStated(const AppcastItem& item)
{
    return std::ranges::any_of(item.enclosures, &AppcastEnclosure::isStated);
}

bool isAny(const AppcastItem&)
{
    return true;
}

/// The newest of the default channel that counts, the first among equals; null without any.
const AppcastItem* newestOf(const QList<AppcastItem>& items, bool (*counts)(const AppcastItem&))
{
    const AppcastItem* newest = nullptr;
    for (const AppcastItem& item : items) {
        if (item.channel.isEmpty() && counts(item)
            && (newest == nullptr
                || isOlder(newest->update.versionString, item.update.versionString))) {
            newest = &item;
        }
    }
    return newest;
}

/// The file that suits this computer best; null when none does.
const AppcastEnclosure* bestFile(const AppcastItem& item, const Circumstances& circumstances)
{
    const auto suits = [&circumstances](const AppcastEnclosure& file) {
        const bool isForProcessor = file.processor.isEmpty() || file.processor == u"any"
            || file.processor == circumstances.processor;
        return isForProcessor && circumstances.kinds.contains(updateKindName(file));
    };
    const auto rank = [](const AppcastEnclosure& file) {
        return (file.fault ? 0 : 2) + (file.isForLinux ? 1 : 0);
    };
    const AppcastEnclosure* best = nullptr;
    for (const AppcastEnclosure& file : item.enclosures) {
        if (suits(file) && (best == nullptr || rank(file) > rank(*best))) {
            best = &file;
        }
    }
    return best;
}

Selection offeredPage(Offer offer, const AppcastItem& item, const Circumstances& circumstances)
{
    // Anybody who controls the feed could send people to a page of theirs.
    if (!circumstances.pageHosts.contains(offer.update.infoUrl.host())) {
        return {.reason = Texts::tr("%1 is available, but there is no page to read about it.")
                              .arg(product(item)),
                .isRefused = true};
    }
    offer.update.isInformationOnly = true;
    return {.offer = offer};
}

Selection offered(const AppcastItem& item, const Circumstances& circumstances)
{
    Offer offer{.update = item.update, .enclosure = {}};
    offer.update.isCritical = isCritical(item, circumstances);
    if (isInformationOnly(item, circumstances)) {
        return offeredPage(offer, item, circumstances);
    }
    const AppcastEnclosure* file = bestFile(item, circumstances);
    if (file == nullptr) {
        if (item.update.infoUrl.isEmpty()) {
            return {.reason
                    = Texts::tr("%1 is available, but not as a file that can be installed here.")
                          .arg(product(item))};
        }
        return offeredPage(offer, item, circumstances);
    }
    if (file->fault) {
        return {.reason = Texts::tr("%1 is available. %2").arg(product(item), *file->fault),
                .isRefused = true};
    }
    offer.enclosure = *file;
    offer.update.contentLength = file->length;
    return {.offer = offer};
}

Selection upToDate(const AppcastItem& newest, const Circumstances& circumstances)
{
    if (isOlder(newest.update.versionString, circumstances.runningVersion)) {
        return {.reason
                = Texts::tr(
                      "You're up to date. Tavik Launcher %1 is newer than the newest on offer, %2.")
                      .arg(circumstances.runningVersion, newest.update.displayVersionString)};
    }
    return {.reason
            = Texts::tr("You're up to date. %1 is the newest version.").arg(product(newest))};
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
    const AppcastItem* best = newestOf(suitable, isAny);
    return best != nullptr ? offered(*best, circumstances)
                           : Selection{.reason = why.value_or(QString())};
}

} // namespace

Selection select(const QList<AppcastItem>& items, const Circumstances& circumstances)
{
    const QString& seen = circumstances.newestSeenVersion;
    const AppcastItem* newest = newestOf(items, isAny);
    const AppcastItem* newestStated = newestOf(items, isStated);
    if (newest == nullptr) {
        return {.reason = Texts::tr("The list of updates has no version for this computer."),
                .isRefused = true,
                .newestSeenVersion = seen};
    }
    const QString stated = newestStated ? newestStated->update.versionString : QString();
    if (isOlder(stated, seen)) {
        return {
            .reason
            = Texts::tr(
                  "The list of updates is older than one seen before: its newest signed version "
                  "is %1, but %2 was there already. Nothing is installed from it.")
                  .arg(stated.isEmpty() ? u"none"_s : stated, seen),
            .isRefused = true,
            .newestSeenVersion = seen};
    }
    Circumstances current = circumstances;
    if (isOlder(newest->update.versionString, current.skippedVersion)) {
        current.skippedVersion.clear(); // It was taken back, and says nothing about others.
    }
    Selection selection = choose(items, *newest, current);
    selection.newestSeenVersion = newestStated ? stated : seen;
    return selection;
}

} // namespace Tavik::AppcastSelection
