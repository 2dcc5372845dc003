// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/DesktopSurvey.h>
#include <TavikLauncherPlatform/Platform.h>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

DesktopCheck::Facts surveyDesktop(const Platform& platform)
{
    return {.trigger = DesktopCheck::Trigger::notRunning,
            .releaseMeans = platform.keyEvents->releaseMeans(),
            .pointer = platform.windowServer->pointerMeans(),
            .overlay = platform.windowServer->overlayMeans(),
            .running = platform.workspace->runningMeans(),
            .raising = platform.workspace->raisingMeans(),
            .tray = platform.statusTray->host(),
            .login = platform.loginItem->status(),
            .loginLine = platform.loginItem->lineOfOwn(),
            .command = platform.command};
}

DesktopCheck::Facts
surveyDesktop(const Platform& platform, const HotKeyConfig& shortcut, DesktopCheck::Trigger trigger)
{
    DesktopCheck::Facts facts = surveyDesktop(platform);
    facts.trigger = trigger;
    facts.shortcut = shortcut;
    facts.triggerMeans = platform.keyEvents->triggerMeans(shortcut.isModifierOnly());
    const AccessibilityPermission& permission = *platform.accessibility;
    // Where a key is heard only now and then the permission would tell of more than that.
    const bool isNeeded
        = shortcut.isModifierOnly() || permission.isForKeys() || !facts.triggerMeans.lack.isEmpty();
    facts.isTrusted = !isNeeded || permission.isTrusted();
    facts.obstacle = permission.obstacle();
    return facts;
}

DesktopReport::Report DesktopReport::of(const DesktopCheck::Facts& facts)
{
    const QList<DesktopCheck::Finding> findings = DesktopCheck::findings(facts);
    const bool isGood = std::ranges::all_of(findings, &DesktopCheck::Finding::isGood);
    return {.text = DesktopCheck::text(findings), .exitCode = isGood ? 0 : 1};
}

QString DesktopReport::toText(const Report& report)
{
    return QString::number(report.exitCode) + u'\n' + report.text;
}

DesktopReport::Report DesktopReport::fromText(const QString& text)
{
    const bool isGood = text.section(u'\n', 0, 0) == u"0"_s;
    return {.text = text.section(u'\n', 1), .exitCode = isGood ? 0 : 1};
}

} // namespace Tavik
