// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/TavikLauncherApp.h>

#include <QEvent>
#include <QSessionManager>

namespace Tavik {

using namespace Qt::StringLiterals;

TavikLauncherApp::TavikLauncherApp(int& argc, char** argv)
    : QApplication(argc, argv)
{
    setQuitOnLastWindowClosed(false);
    setApplicationName(u"Tavik Launcher"_s);
    setDesktopFileName(u"org.tavik.Launcher"_s);
    // Whether a login starts the launcher is the user's choice in the settings; a session manager
    // that starts whatever ran at the end would do it unasked, or a second time.
    connect(this, &QGuiApplication::saveStateRequest, this, [](QSessionManager& session) {
        session.setRestartHint(QSessionManager::RestartNever);
    });
}

bool TavikLauncherApp::event(QEvent* event)
{
    // So ends the session. The toolkit would close the windows one by one, as if the user had: the
    // tour would count as taken.
    if (event->type() == QEvent::Quit) {
        exit();
        return true;
    }
    return QApplication::event(event);
}

} // namespace Tavik
