// SPDX-License-Identifier: MIT
#include <TavikLauncher/Settings/DesktopCheck.h>
#include <TavikLauncher/Settings/ShortcutWords.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QStringList>

#include <algorithm>

namespace Tavik::DesktopCheck {

using namespace Qt::StringLiterals;

namespace {

QString sentences(const QStringList& all)
{
    return all.join(u' ').trimmed();
}

Finding byMeans(const QString& name, const Means& means)
{
    return {.name = name, .mechanism = means.way, .advice = means.lack};
}

Finding triggerFinding(const Facts& facts)
{
    Finding finding{.name = Texts::tr("Trigger"), .mechanism = facts.triggerMeans.way};
    const AccessibilityPermission::Obstacle& obstacle = facts.obstacle;
    const bool isMissing = facts.trigger == Trigger::unheard || !facts.isTrusted;
    const bool isRefused = facts.trigger == Trigger::refused || (isMissing && obstacle.isOfShortcut)
        || (isMissing && obstacle.limit.isEmpty());
    if (facts.trigger == Trigger::notRunning) {
        finding.mechanism = Texts::tr("Nobody listens.");
        finding.advice = Texts::tr("Tavik Launcher is not running. Start it.");
        finding.line = facts.command;
    } else if (isMissing && obstacle.isLiftedByPrompt) {
        finding.advice = obstacle.limit;
        finding.repair = Repair::setUpTrigger;
    } else if (isRefused) {
        finding.advice = sentences({ShortcutWords::lost(facts.shortcut), ShortcutWords::whyLost()});
        finding.repair = Repair::chooseShortcut;
    } else if (isMissing) {
        finding.advice = sentences({obstacle.limit, obstacle.remedy});
        finding.line = obstacle.line;
    } else if (!facts.triggerMeans.lack.isEmpty()) {
        finding.advice = facts.triggerMeans.lack;
        finding.repair = Repair::chooseShortcut;
    }
    return finding;
}

Finding releaseFinding(const Facts& facts)
{
    const QString name = Texts::tr("Release");
    if (facts.trigger == Trigger::notRunning || facts.shortcut.isModifierOnly()) {
        return byMeans(name, facts.releaseMeans);
    }
    return {.name = name,
            .mechanism = Texts::tr("Not needed: %1 is pressed once to open and once to close.")
                             .arg(ShortcutWords::keys(facts.shortcut))};
}

Finding trayFinding(const Facts& facts)
{
    Finding finding{.name = Texts::tr("Tray")};
    switch (facts.tray) {
    case StatusTray::Host::notifier:
        finding.mechanism = Texts::tr("The panel shows what is described to it.");
        break;
    case StatusTray::Host::embedding:
        finding.mechanism = Texts::tr("The panel takes small windows, as older ones do.");
        break;
    case StatusTray::Host::none:
        finding.mechanism = Texts::tr("No panel shows status items.");
        finding.advice = Texts::tr("Add a tray to your panel; for GNOME there is an extension. "
                                   "Meanwhile this command opens the settings.");
        finding.line = facts.command + u" --settings"_s;
        break;
    }
    return finding;
}

Finding loginFinding(const Facts& facts)
{
    Finding finding{.name = Texts::tr("Autostart")};
    if (!facts.loginLine.isEmpty()) {
        finding.mechanism = facts.isStartedAtLogin
            ? Texts::tr("This session has started the launcher.")
            : Texts::tr("This session is not known to read the autostart folder.");
        if (!facts.isStartedAtLogin) {
            finding.advice = Texts::tr("Add this line to what your session starts.");
            finding.line = facts.loginLine;
        }
        return finding;
    }
    switch (facts.login) {
    case LoginItem::Status::enabled:
        finding.mechanism = Texts::tr("An entry in the autostart folder.");
        break;
    case LoginItem::Status::notRegistered:
        finding.mechanism = Texts::tr("There is no entry in the autostart folder.");
        finding.advice = Texts::tr("The launcher does not start when you log in.");
        finding.repair = Repair::launchAtLogin;
        break;
    case LoginItem::Status::requiresApproval:
        finding.mechanism = Texts::tr("The entry in the autostart folder is switched off.");
        finding.advice = Texts::tr("The launcher does not start when you log in.");
        finding.repair = Repair::launchAtLogin;
        break;
    case LoginItem::Status::notFound:
        finding.mechanism = Texts::tr("An entry in the autostart folder.");
        finding.advice = Texts::tr("The launcher's program is not where it was. Install it again.");
        break;
    }
    return finding;
}

} // namespace

QList<Finding> findings(const Facts& facts)
{
    return {triggerFinding(facts),
            releaseFinding(facts),
            byMeans(Texts::tr("Pointer"), facts.pointer),
            byMeans(Texts::tr("Overlay"), facts.overlay),
            byMeans(Texts::tr("Running programs"), facts.running),
            byMeans(Texts::tr("Bringing to the front"), facts.raising),
            trayFinding(facts),
            loginFinding(facts)};
}

QString nameOf(Repair repair)
{
    switch (repair) {
    case Repair::none:
        break;
    case Repair::setUpTrigger:
        return Texts::tr("Set Up");
    case Repair::chooseShortcut:
        return Texts::tr("Choose Shortcut");
    case Repair::launchAtLogin:
        return Texts::tr("Turn On");
    }
    return {};
}

QString summary(const QList<Finding>& findings)
{
    const auto good = std::ranges::count_if(findings, &Finding::isGood);
    return good == findings.size() ? Texts::tr("This desktop gives the launcher all it needs.")
                                   : Texts::tr("Needs your attention: %1 of %2.")
                                         .arg(findings.size() - good)
                                         .arg(findings.size());
}

QString text(const QList<Finding>& findings)
{
    QString text;
    for (const Finding& finding : findings) {
        text += u"[%1] %2: %3\n"_s.arg(
            finding.isGood() ? u"ok"_s : u"!!"_s, finding.name, finding.mechanism);
        if (!finding.isGood()) {
            text += u"     "_s + finding.advice + u'\n';
        }
        if (!finding.line.isEmpty()) {
            text += u"     $ "_s + finding.line + u'\n';
        }
    }
    return text + summary(findings) + u'\n';
}

} // namespace Tavik::DesktopCheck
