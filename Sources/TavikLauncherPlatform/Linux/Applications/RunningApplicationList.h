// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Workspace.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace Tavik {

/// A window of whatever window system; 0 is none.
using WindowId = quint64;

/// One window, once it is known whose it is.
struct ApplicationWindow
{
    WindowId window = 0; ///< 0 for an application that runs though no window is told of.
    bool isRegular = false; ///< A taskbar would show it.
    QString group; ///< Windows with the same text belong to one application; never empty.
    std::optional<QString> bundlePath;
    std::optional<QString> bundleIdentifier;
    qint64 processId = 0;
    bool isListed = true; ///< Of its application: menus show it.

    bool operator==(const ApplicationWindow&) const = default;
};

/// Groups windows into running applications and tells which of these came and went. An application
/// keeps its place from its first window to its last. Values in, values out.
class RunningApplicationList
{
public:
    /// Bundle paths (empty for an application without one).
    struct Changes
    {
        QStringList launched;
        QStringList terminated;
    };

    /// Takes the windows that exist now, in the order in which they appeared.
    Changes setWindows(const QList<ApplicationWindow>& windows);

    [[nodiscard]] QList<RunningApplication> applications() const;
    /// The application that a window belongs to.
    [[nodiscard]] std::optional<RunningApplication> applicationOf(WindowId window) const;
    /// The regular windows of the application at `bundlePath`.
    [[nodiscard]] QList<WindowId> windowsOf(const QString& bundlePath) const;

private:
    struct Entry
    {
        QString group;
        RunningApplication application;
        QList<WindowId> regularWindows;
        QList<WindowId> windows;
    };
    [[nodiscard]] Entry& entryFor(const ApplicationWindow& window);

    std::vector<Entry> m_entries;
};

} // namespace Tavik
