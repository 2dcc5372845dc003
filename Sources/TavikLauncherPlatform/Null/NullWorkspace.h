// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Workspace.h>

namespace Tavik {

/// A workspace on which nothing is known to run and nothing can be opened.
class NullWorkspace final : public Workspace
{
public:
    [[nodiscard]] QList<RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    [[nodiscard]] std::optional<QString>
    pathForApplication(const QString& bundleIdentifier) const override;
    /// Always completes, at once, with an error.
    void openApplication(const QString& path,
                         OpenConfiguration configuration,
                         OpenCompletion completion) override;
    [[nodiscard]] NotificationCenter& notificationCenter() override { return m_center; }

private:
    NotificationCenter m_center;
};

} // namespace Tavik
