// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/RunningApplicationList.h>

#include <QHash>

#include <algorithm>

namespace Tavik {

namespace {

using Policy = RunningApplication::ActivationPolicy;

}

RunningApplicationList::Entry& RunningApplicationList::entryFor(const ApplicationWindow& window)
{
    auto found = std::ranges::find(m_entries, window.group, &Entry::group);
    if (found == m_entries.end()) {
        m_entries.push_back({.group = window.group,
                             .application = {.activationPolicy = Policy::accessory,
                                             .bundleIdentifier = window.bundleIdentifier,
                                             .bundlePath = window.bundlePath,
                                             .processId = window.processId,
                                             .isListed = window.isListed},
                             .regularWindows = {},
                             .windows = {}});
        found = std::prev(m_entries.end());
    }
    return *found;
}

RunningApplicationList::Changes
RunningApplicationList::setWindows(const QList<ApplicationWindow>& windows)
{
    QHash<QString, QString> regularBefore;
    for (Entry& entry : m_entries) {
        if (entry.application.activationPolicy == Policy::regular) {
            regularBefore.insert(entry.group, entry.application.bundlePath.value_or(QString()));
        }
        entry.windows.clear();
        entry.regularWindows.clear();
        entry.application.activationPolicy = Policy::accessory;
    }
    for (const ApplicationWindow& window : windows) {
        Entry& entry = entryFor(window);
        entry.windows.append(window.window);
        if (window.isRegular) {
            if (window.window != 0) {
                entry.regularWindows.append(window.window);
            }
            entry.application.activationPolicy = Policy::regular;
        }
    }
    std::erase_if(m_entries, [](const Entry& entry) { return entry.windows.isEmpty(); });

    Changes changes;
    for (const Entry& entry : m_entries) {
        if (entry.application.activationPolicy == Policy::regular
            && regularBefore.remove(entry.group) == 0) {
            changes.launched.append(entry.application.bundlePath.value_or(QString()));
        }
    }
    changes.terminated = regularBefore.values();
    return changes;
}

QList<RunningApplication> RunningApplicationList::applications() const
{
    QList<RunningApplication> result;
    result.reserve(static_cast<qsizetype>(m_entries.size()));
    for (const Entry& entry : m_entries) {
        result.append(entry.application);
    }
    return result;
}

std::optional<RunningApplication> RunningApplicationList::applicationOf(WindowId window) const
{
    const auto found = std::ranges::find_if(
        m_entries, [window](const Entry& entry) { return entry.windows.contains(window); });
    return window == 0 || found == m_entries.end() ? std::nullopt
                                                   : std::optional(found->application);
}

QList<WindowId> RunningApplicationList::windowsOf(const QString& bundlePath) const
{
    const auto found = std::ranges::find_if(m_entries, [&bundlePath](const Entry& entry) {
        return entry.application.bundlePath == bundlePath;
    });
    return found == m_entries.end() ? QList<WindowId>() : found->regularWindows;
}

} // namespace Tavik
