// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/AppDelegate.h>
#include <TavikLauncher/Shell/BuildUpdateSource.h>
#include <TavikLauncher/Shell/CommandLine.h>
#include <TavikLauncher/Views/RingAccessibility.h>
#include <TavikLauncherPlatform/Platform.h>
#include <TavikLauncherPlatform/TerminationSignals.h>

#include <QApplication>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

constexpr int notRunning = 1;

QStringList argumentList(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    return arguments;
}

void print(std::FILE* stream, const QString& text)
{
    QTextStream(stream) << text;
}

bool needsRunningInstance(AppAction action)
{
    return action == AppAction::hideLauncher || action == AppAction::quit;
}

int run(int argc, char** argv, const AppRequest& request)
{
    // Other programs' icons may be faulty in many ways; whoever decodes them goes on with the next.
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false\nqt.svg*=false"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"TavikLauncher"_s);
    QApplication::setDesktopFileName(u"org.tavik.Launcher"_s);

    SingleInstance instance;
    if (instance.claim() == SingleInstance::Claim::taken) {
        return SingleInstance::forward(request) ? 0 : notRunning;
    }
    RingAccessibility::install();
    const std::unique_ptr<Platform> platform = makePlatform(buildUpdateSource());
    AppDelegate delegate(*platform);
    delegate.applicationDidFinishLaunching();
    instance.onRequest = [&delegate](const AppRequest& wanted) {
        delegate.perform(wanted);
    };
    if (request.action != AppAction::activate) {
        platform->mainQueue->post([&delegate, request] { delegate.perform(request); });
    }
    const TerminationSignals signals([] { QCoreApplication::quit(); });
    const int exitCode = QApplication::exec();
    // No job may outlive what it refers to; what hangs ends with the process.
    if (!platform->workQueue->finish()) {
        platform->userDefaults.reset(); // Writes what is not on disk yet.
        std::_Exit(exitCode);
    }
    return exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    const CommandLine commandLine = CommandLine::parse(argumentList(argc, argv));
    if (commandLine.answer) {
        print(commandLine.exitCode == 0 ? stdout : stderr, *commandLine.answer);
        return commandLine.exitCode;
    }
    const AppRequest& request = commandLine.request;
    // What the running instance is to do needs neither windows nor fonts here: it is on its way
    // before the toolkit would have started.
    if (request.action != AppAction::activate && SingleInstance::forward(request)) {
        return 0;
    }
    if (needsRunningInstance(request.action)) {
        print(stderr, u"tavik-launcher: no launcher is running\n"_s);
        return notRunning;
    }
    return run(argc, argv, request);
}
