// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/OpenPage.h>
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>

#include <QDesktopServices>
#include <QLoggingCategory>

namespace Tavik {

namespace {
Q_LOGGING_CATEGORY(log, "tavik.shell")
}

void openPage(const QUrl& url)
{
    const LaunchResult result = openWithDefault(url);
    // A desktop that keeps no program for pages may have a way of its own.
    if (result.error && !QDesktopServices::openUrl(url)) {
        qCWarning(log,
                  "Tavik Launcher: %s could not be opened: %ls",
                  url.toEncoded().constData(),
                  qUtf16Printable(*result.error));
    }
}

} // namespace Tavik
