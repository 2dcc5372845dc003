// SPDX-License-Identifier: MIT
#include <TavikLauncher/Languages/Languages.h>
#include <TavikLauncher/Shell/AppDelegate.h>
#include <TavikLauncher/Shell/BuildOptions.h>
#include <TavikLauncher/Shell/CommandLine.h>
#include <TavikLauncher/Shell/DesktopSurvey.h>
#include <TavikLauncher/Shell/InstanceClaim.h>
#include <TavikLauncher/Shell/RuntimeFolder.h>
#include <TavikLauncher/Shell/SingleInstance.h>
#include <TavikLauncher/Shell/TavikLauncherApp.h>
#include <TavikLauncher/Views/Ring/RingAccessibility.h>
#include <TavikLauncherPlatform/Linux/Applications/ApplicationLaunch.h>
#include <TavikLauncherPlatform/NotificationCenter.h>
#include <TavikLauncherPlatform/Platform.h>
#include <TavikLauncherPlatform/TerminationSignals.h>

#include <QLocale>
#include <QLoggingCategory>
#include <QTextStream>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <utility>

using namespace Tavik;
using namespace Qt::StringLiterals;

namespace {

constexpr int failure = 1;
constexpr double secondsToAnswer = 0.7;
constexpr const char* startupIdVariable = "DESKTOP_STARTUP_ID";
constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";

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
    return action == AppAction::hideLauncher || action == AppAction::quit
        || action == AppAction::checkDesktop;
}

/// What the desktop gave this process along; the toolkit takes some of it away when it starts.
Activation givenActivation()
{
    return {.startupId = qgetenv(startupIdVariable), .token = qgetenv(tokenVariable)};
}

int complain(const QString& fault)
{
    print(stderr, u"tavik-launcher: %1\n"_s.arg(fault));
    return failure;
}

InstanceClaim::Wish wishOf(const CommandLine& commandLine)
{
    // A login or the bus only wants the launcher to run.
    return {.request = commandLine.starter == CommandLine::Starter::user
                ? std::optional(commandLine.request)
                : std::nullopt,
            .needsRunning = needsRunningInstance(commandLine.request.action)};
}

/// What this start has come to, where it does not become the one instance.
int conclude(InstanceClaim& claim, InstanceClaim::Outcome outcome, const AppRequest& request)
{
    if (outcome == InstanceClaim::Outcome::nobody) {
        return complain(u"no launcher is running"_s);
    }
    if (outcome == InstanceClaim::Outcome::silent) {
        return complain(u"the launcher that runs does not answer"_s);
    }
    // Whoever goes on from here may count on it.
    if (request.action == AppAction::quit && !claim.awaitEnd()) {
        return complain(u"the launcher that runs has not ended yet"_s);
    }
    return 0;
}

/// Does what this start was for, now and for as long as the bus has not said it.
void beginService(SingleInstance& instance, AppDelegate& delegate, const CommandLine& commandLine)
{
    using Starter = CommandLine::Starter;
    const auto isFirstOfLogin = [] {
        return RuntimeFolder::isFirstOfLogin(u"tavik-launcher.shown"_s);
    };
    if (commandLine.starter == Starter::login) {
        delegate.startedAtLogin();
    }
    instance.onCheckDesktop = [&delegate] {
        return DesktopReport::toText(DesktopReport::of(delegate.desktopFacts()));
    };
    instance.onRequest = [&delegate, isFirstOfLogin, isFirst = commandLine.starter == Starter::bus](
                             const AppRequest& wanted) mutable {
        // The bus started this process for its first message; a plain one means the start.
        if (std::exchange(isFirst, false) && wanted.action == AppAction::activate) {
            delegate.startedByUser(wanted.activation, isFirstOfLogin);
        } else {
            delegate.perform(wanted);
        }
    };
    if (commandLine.request.action != AppAction::activate) {
        delegate.performSoon(commandLine.request);
    } else if (commandLine.starter == Starter::user) {
        delegate.startedByUser(commandLine.request.activation, isFirstOfLogin);
    }
}

/// What can be said of the desktop while no launcher runs, without asking it for a shortcut.
int checkDesktop(int argc, char** argv)
{
    if (const std::optional<QString> fault = chooseDisplay()) {
        return complain(*fault);
    }
    TavikLauncherApp application(argc, argv);
    Languages::speak(application, Languages::chosen(QLocale::system().uiLanguages()));
    PlatformOptions options = buildOptions();
    options.listens = false;
    const std::unique_ptr<Platform> platform = makePlatform(options);
    // Nobody tells when the last part of the desktop has answered.
    const Task end = platform->mainQueue->after(secondsToAnswer, [] { TavikLauncherApp::exit(); });
    TavikLauncherApp::exec();
    const DesktopReport::Report report = DesktopReport::of(surveyDesktop(*platform));
    print(stdout, report.text);
    std::fflush(stdout);
    if (!platform->workQueue->finish()) {
        std::_Exit(report.exitCode);
    }
    return report.exitCode;
}

/// How a run of the program ended.
struct Ending
{
    int exitCode = 0;
    std::optional<QString> programToRelaunch;
};

/// Starts what takes this program's place. It asks for the name of the one instance, so nobody may
/// have that any more.
int relaunch(const Ending& ending)
{
    if (ending.programToRelaunch) {
        const QString& program = *ending.programToRelaunch;
        const LaunchResult result
            = launchApplication({.path = program, .entry = {}, .program = program});
        if (result.error) {
            return complain(*result.error);
        }
    }
    return ending.exitCode;
}

Ending run(int argc, char** argv, const CommandLine& commandLine, InstanceClaim& claim)
{
    // Other programs' icons may be faulty in many ways; whoever decodes them goes on with the next.
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false\nqt.svg*=false"_s);
    TavikLauncherApp application(argc, argv);
    Languages::speak(application, Languages::chosen(QLocale::system().uiLanguages()));
    // From here on until all is given back, also while the loop does not turn yet or any more.
    const TerminationSignals signals(&TavikLauncherApp::end);

    SingleInstance instance;
    if (!instance.listen()) {
        const InstanceClaim::Outcome outcome
            = claim.settleOnBus(wishOf(commandLine), [&instance] { return instance.listen(); });
        if (outcome != InstanceClaim::Outcome::first) {
            return {.exitCode = conclude(claim, outcome, commandLine.request)};
        }
    }
    application.onEnd = [&instance] {
        instance.giveUp();
    };
    RingAccessibility::install();
    const PlatformOptions options = buildOptions();
    TavikLauncherApp::setApplicationVersion(options.updates.version);
    const std::unique_ptr<Platform> platform = makePlatform(options);
    platform->updater->onTerminate = [] {
        TavikLauncherApp::end();
    };
    if (commandLine.starter == CommandLine::Starter::user) {
        platform->loginItem->mend(); // Before the settings read it.
    }
    NotificationCenter notifications;
    AppDelegate delegate(*platform, notifications);
    delegate.applicationDidFinishLaunching();
    beginService(instance, delegate, commandLine);
    Ending ending{.exitCode = TavikLauncherApp::exec()};
    instance.giveUp();
    ending.programToRelaunch = platform->updater->programToRelaunch();
    // No job may outlive what it refers to; what hangs ends with the process.
    if (!platform->workQueue->finish()) {
        platform->accessibility.reset(); // Gives back the keys that the desktop was asked for.
        platform->userDefaults.reset(); // Writes what is not on disk yet.
        claim.release();
        std::_Exit(relaunch(ending));
    }
    return ending;
}

} // namespace

int main(int argc, char** argv)
{
    saveMemory();
    // Processes of ours are waited for, whatever we were started to ignore.
    std::signal(SIGCHLD, SIG_DFL);
    const QStringList arguments = argumentList(argc, argv);
    CommandLine commandLine = CommandLine::parse(arguments);
    if (commandLine.answer) {
        // In the user's language, for which catalogs are needed, and for these the toolkit.
        QCoreApplication application(argc, argv);
        Languages::speak(application, Languages::chosen(QLocale::system().uiLanguages()));
        commandLine = CommandLine::parse(arguments);
        print(commandLine.exitCode == 0 ? stdout : stderr, *commandLine.answer);
        if (commandLine.tellsDisplay) {
            const std::optional<QString> fault = chooseDisplay();
            print(stdout,
                  u"display: %1\n"_s.arg(fault ? u"none, %1"_s.arg(*fault) : chosenDisplay()));
        }
        return commandLine.exitCode;
    }
    AppRequest& request = commandLine.request;
    // Whoever only asks another launcher for something has not got it when a signal comes.
    if (!needsRunningInstance(request.action)) {
        TerminationSignals::endAtOnce();
    }
    request.activation = givenActivation();
    // What the running instance is to do needs neither windows nor fonts here: it is on its way
    // before the toolkit would have started.
    InstanceClaim claim;
    InstanceClaim::Wish wish = wishOf(commandLine);
    QString answer;
    wish.answer = request.action == AppAction::checkDesktop ? &answer : nullptr;
    const InstanceClaim::Outcome outcome = claim.settle(wish);
    if (wish.answer && outcome == InstanceClaim::Outcome::nobody) {
        return checkDesktop(argc, argv);
    }
    if (wish.answer && outcome == InstanceClaim::Outcome::handedOver) {
        const DesktopReport::Report report = DesktopReport::fromText(answer);
        print(stdout, report.text);
        return report.exitCode;
    }
    if (outcome != InstanceClaim::Outcome::first) {
        return conclude(claim, outcome, request);
    }
    if (const std::optional<QString> fault = chooseDisplay()) {
        return complain(*fault);
    }
    const Ending ending = run(argc, argv, commandLine, claim);
    claim.release();
    return relaunch(ending);
}
