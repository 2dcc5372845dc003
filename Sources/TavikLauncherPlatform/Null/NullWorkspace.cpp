// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Null/NullWorkspace.h>

namespace Tavik {

QList<RunningApplication> NullWorkspace::runningApplications() const
{
    return {};
}

std::optional<RunningApplication> NullWorkspace::frontmostApplication() const
{
    return std::nullopt;
}

std::optional<QString> NullWorkspace::pathForApplication(const QString&) const
{
    return std::nullopt;
}

void NullWorkspace::openApplication(const QString&, OpenConfiguration, OpenCompletion completion)
{
    completion(QStringLiteral("Applications cannot be opened in this session."));
}

} // namespace Tavik
