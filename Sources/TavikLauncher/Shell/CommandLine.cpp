// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/CommandLine.h>

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int usageError = 2;

struct Option
{
    const char16_t* name;
    AppAction action;
    const char16_t* help;
};
constexpr std::array<Option, 8> options{{
    {u"--show", AppAction::showLauncher, u"show the ring"},
    {u"--toggle", AppAction::toggleLauncher, u"show the ring at the pointer, or hide it"},
    {u"--hide", AppAction::hideLauncher, u"hide the ring"},
    {u"--settings", AppAction::settings, u"open the settings, with =SECTION at that section"},
    {u"--reindex", AppAction::reindex, u"open the window that rebuilds the application index"},
    {u"--tour", AppAction::tour, u"show the tour"},
    {u"--check-for-updates", AppAction::checkForUpdates, u"ask for a newer version"},
    {u"--quit", AppAction::quit, u"end the running launcher"},
}};

QString usage()
{
    QString text
        = u"Usage: tavik-launcher [option]\n\nWithout an option: start the launcher, or show "
          u"the ring of the one that runs.\n\n"_s;
    for (const Option& option : options) {
        text += u"  %1 %2\n"_s.arg(QStringView(option.name), -20).arg(QStringView(option.help));
    }
    return text
        + u"  --version            print the version\n  --help               print this text\n"_s;
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    if (arguments.isEmpty()) {
        return {};
    }
    if (arguments.size() > 1) {
        return {.answer = u"tavik-launcher: one option at a time\n"_s + usage(),
                .exitCode = usageError};
    }
    const QString& argument = arguments.front();
    if (argument == u"--help" || argument == u"-h") {
        return {.answer = usage()};
    }
    if (argument == u"--version") {
        return {.answer = u"tavik-launcher %1\n"_s.arg(QStringLiteral(TAVIK_VERSION))};
    }
    const QString name = argument.section(u'=', 0, 0);
    const auto found = std::ranges::find_if(
        options, [&name](const Option& option) { return name == QStringView(option.name); });
    const bool hasArgument = argument.contains(u'=');
    if (found != options.end() && (!hasArgument || found->action == AppAction::settings)) {
        return {.request = {.action = found->action, .argument = argument.section(u'=', 1)}};
    }
    return {.answer = u"tavik-launcher: unknown option %1\n"_s.arg(argument) + usage(),
            .exitCode = usageError};
}

} // namespace Tavik
