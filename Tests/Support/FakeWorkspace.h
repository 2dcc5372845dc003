// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Workspace.h>

#include <QMap>
#include <QStringList>

#include <Support/Noting.h>

namespace Tavik::Test {

/// A workspace whose applications the test starts and ends; records what was opened.
class FakeWorkspace : public Workspace, public Noting
{
public:
    [[nodiscard]] QList<RunningApplication> runningApplications() const override { return running; }
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override
    {
        return frontmost;
    }
    [[nodiscard]] QStringList startingApplications() const override { return starting; }
    [[nodiscard]] std::optional<QString>
    pathForApplication(const QString& bundleIdentifier) const override
    {
        const auto found = paths.find(bundleIdentifier);
        return found == paths.end() ? std::nullopt : std::optional(*found);
    }
    void openApplication(const QString& path, OpenConfiguration, OpenCompletion completion) override
    {
        opened.append(path);
        completion(openError);
    }
    [[nodiscard]] NotificationCenter& notificationCenter() override
    {
        note("");
        return center;
    }

    /// Adds a regular application and says so.
    void launch(const QString& path, const QString& identifier = {})
    {
        RunningApplication application;
        application.bundlePath = path;
        if (!identifier.isEmpty()) {
            application.bundleIdentifier = identifier;
        }
        running.append(application);
        center.post(didLaunchApplication, path);
    }

    QList<RunningApplication> running;
    QStringList starting;
    std::optional<RunningApplication> frontmost;
    QMap<QString, QString> paths;
    std::optional<QString> openError;
    QStringList opened;
    NotificationCenter center;
};

} // namespace Tavik::Test
