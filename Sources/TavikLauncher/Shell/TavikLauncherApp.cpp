// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/TavikLauncherApp.h>

#include <QEvent>
#include <QSessionManager>

#include <utility>

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

void TavikLauncherApp::end()
{
    if (auto* application = qobject_cast<TavikLauncherApp*>(instance())) {
        if (const auto onEnd = std::exchange(application->onEnd, nullptr)) {
            onEnd();
        }
    }
    exit();
}

bool TavikLauncherApp::event(QEvent* event)
{
    // So ends the session. The toolkit would close the windows one by one, as if the user had: the
    // tour would count as taken.
    if (event->type() == QEvent::Quit) {
        end();
        return true;
    }
    return QApplication::event(event);
}

} // namespace Tavik
