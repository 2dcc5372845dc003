// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Means.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace Tavik {

/// One application that runs now.
struct RunningApplication
{
    enum class ActivationPolicy {
        regular, ///< Has a window that a taskbar would show.
        accessory,
    };
    ActivationPolicy activationPolicy = ActivationPolicy::regular;
    std::optional<QString> bundleIdentifier;
    std::optional<QString> bundlePath;
    qint64 processId = 0;
    /// Menus of this desktop show it: it is neither an agent nor meant for another desktop.
    bool isListed = true;

    bool operator==(const RunningApplication&) const = default;
};

/// What runs on this desktop, and how to start and raise it. Main thread only; every query answers
/// from memory.
class Workspace
{
public:
    /// Posted by `notificationCenter()`. The subject is the application's bundle path (empty when
    /// it has none); `willSleep` has no subject.
    static constexpr QStringView didLaunchApplication = u"Workspace.didLaunchApplication";
    static constexpr QStringView didTerminateApplication = u"Workspace.didTerminateApplication";
    static constexpr QStringView didActivateApplication = u"Workspace.didActivateApplication";
    /// No subject: `startingApplications` has changed.
    static constexpr QStringView didChangeStartingApplications
        = u"Workspace.didChangeStartingApplications";
    static constexpr QStringView willSleep = u"Workspace.willSleep";

    struct OpenConfiguration
    {
        bool activates = false;
    };
    /// Nothing means that the application was opened, else the reason why not.
    using OpenCompletion = std::function<void(const std::optional<QString>& error)>;

    virtual ~Workspace() = default;

    /// How it is known what runs, and how that is brought to the front.
    [[nodiscard]] virtual Means runningMeans() const { return {}; }
    [[nodiscard]] virtual Means raisingMeans() const { return {}; }
    /// In the order in which the applications' first windows appeared.
    [[nodiscard]] virtual QList<RunningApplication> runningApplications() const = 0;
    /// The application that has the focus, if one has.
    [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() const = 0;
    /// The paths of the applications that were asked to start and have shown no window yet. They
    /// are not started again meanwhile.
    [[nodiscard]] virtual QStringList startingApplications() const { return {}; }
    /// The path of the application that the system prefers for an identifier.
    [[nodiscard]] virtual std::optional<QString>
    pathForApplication(const QString& bundleIdentifier) const = 0;
    /// Raises the application's most recent window if it runs, starts it otherwise. A started
    /// application outlives this program.
    virtual void
    openApplication(const QString& path, OpenConfiguration configuration, OpenCompletion completion)
        = 0;
    [[nodiscard]] virtual NotificationCenter& notificationCenter() = 0;
};

} // namespace Tavik
