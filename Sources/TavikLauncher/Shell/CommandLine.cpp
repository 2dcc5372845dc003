// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/CommandLine.h>
#include <TavikLauncher/Views/SettingsWindow/SettingsSection.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int usageError = 2;
constexpr QStringView background = u"--background";
constexpr QStringView busService = u"--dbus-service";

struct Option
{
    const char16_t* name;
    AppAction action;
    const char* help;
};
constexpr std::array<Option, 10> options{{
    {u"--summon",
     AppAction::summon,
     QT_TRANSLATE_NOOP("Tavik::Texts", "press the shortcut: for a key that the desktop binds")},
    {u"--show", AppAction::showLauncher, QT_TRANSLATE_NOOP("Tavik::Texts", "show the ring")},
    {u"--toggle",
     AppAction::toggleLauncher,
     QT_TRANSLATE_NOOP("Tavik::Texts", "show the ring at the pointer, or hide it")},
    {u"--hide", AppAction::hideLauncher, QT_TRANSLATE_NOOP("Tavik::Texts", "hide the ring")},
    {u"--settings",
     AppAction::settings,
     QT_TRANSLATE_NOOP("Tavik::Texts", "open the settings, with =SECTION at that section")},
    {u"--reindex",
     AppAction::reindex,
     QT_TRANSLATE_NOOP("Tavik::Texts", "open the window that rebuilds the application index")},
    {u"--tour", AppAction::tour, QT_TRANSLATE_NOOP("Tavik::Texts", "show the tour")},
    {u"--check-for-updates",
     AppAction::checkForUpdates,
     QT_TRANSLATE_NOOP("Tavik::Texts", "ask for a newer version")},
    {u"--check-desktop",
     AppAction::checkDesktop,
     QT_TRANSLATE_NOOP("Tavik::Texts", "print what this desktop gives the launcher, and what not")},
    {u"--quit", AppAction::quit, QT_TRANSLATE_NOOP("Tavik::Texts", "end the running launcher")},
}};

QString helpLine(QStringView name, const QString& help)
{
    return u"  %1 %2\n"_s.arg(name, -20).arg(help);
}

QString usage()
{
    QString text = Texts::tr("Usage: tavik-launcher [option]") + u"\n\n"_s
        + Texts::tr("Without an option: start the launcher, or show the ring of the one that runs.")
        + u"\n\n"_s;
    for (const Option& option : options) {
        text += helpLine(option.name, Texts::tr(option.help));
    }
    return text + helpLine(background, Texts::tr("start as at login: nothing is shown unasked"))
        + helpLine(u"--version", Texts::tr("print the version, and how the screen is reached"))
        + helpLine(u"--help", Texts::tr("print this text"));
}

CommandLine refusal(const QString& fault)
{
    return {.answer = u"tavik-launcher: %1\n"_s.arg(fault) + usage(), .exitCode = usageError};
}

CommandLine settingsAt(const QString& section)
{
    const bool isKnown
        = std::ranges::any_of(allSettingsSections, [&section](const SettingsSection& known) {
              return known.id == section;
          });
    if (isKnown) {
        return {.request = {.action = AppAction::settings, .argument = section}};
    }
    QStringList known;
    for (const SettingsSection& entry : allSettingsSections) {
        known << entry.id.toString();
    }
    return refusal(Texts::tr("the settings have no section \"%1\"; there are %2")
                       .arg(section, known.join(u", "_s)));
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    if (arguments.isEmpty()) {
        return {};
    }
    if (arguments.size() > 1) {
        return refusal(Texts::tr("one option at a time"));
    }
    const QString& argument = arguments.front();
    if (argument == u"--help" || argument == u"-h") {
        return {.answer = usage()};
    }
    if (argument == u"--version") {
        return {.answer = QStringLiteral("tavik-launcher " TAVIK_VERSION "\n"),
                .tellsDisplay = true};
    }
    if (argument == background || argument == busService) {
        return {.starter = argument == background ? Starter::login : Starter::bus};
    }
    const QString name = argument.section(u'=', 0, 0);
    const auto found = std::ranges::find_if(
        options, [&name](const Option& option) { return name == QStringView(option.name); });
    if (found == options.end()) {
        return refusal(Texts::tr("unknown option %1").arg(argument));
    }
    if (!argument.contains(u'=')) {
        return {.request = {.action = found->action}};
    }
    return found->action == AppAction::settings ? settingsAt(argument.section(u'=', 1))
                                                : refusal(Texts::tr("%1 takes no value").arg(name));
}

} // namespace Tavik
