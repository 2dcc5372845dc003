// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>

#include <QUrl>

#include <algorithm>
#include <array>
#include <glib.h>
#include <memory>
#include <span>

namespace Tavik::CommandLine {

namespace {

using namespace Qt::StringLiterals;

/// Run the script that follows them.
constexpr auto interpreters = std::to_array<QLatin1String>({
    "bash"_L1,
    "dash"_L1,
    "electron"_L1,
    "gjs"_L1,
    "java"_L1,
    "mono"_L1,
    "node"_L1,
    "perl"_L1,
    "ruby"_L1,
    "sh"_L1,
});

/// Start what only they know.
constexpr auto wrappers = std::to_array<QLatin1String>({
    "flatpak"_L1,
    "gtk-launch"_L1,
    "pkexec"_L1,
    "snap"_L1,
    "steam"_L1,
    "sudo"_L1,
    "wine"_L1,
    "wine64"_L1,
    "xdg-open"_L1,
});

QString baseName(const QString& word)
{
    return word.section(u'/', -1);
}

bool isAmong(std::span<const QLatin1String> names, const QString& name)
{
    return std::ranges::find(names, name) != names.end();
}

bool isFieldCode(const QString& word)
{
    return word.size() == 2 && word.front() == u'%';
}

/// `env` and what it may be told before the program.
bool belongsToEnvironment(const QString& word)
{
    return baseName(word) == "env"_L1 || (word.contains(u'=') && !word.startsWith(u'-'));
}

/// Fills in the codes within one word.
QString filledIn(const QString& word, const DesktopEntry& entry, const QString& target)
{
    QString result;
    for (qsizetype i = 0; i < word.size(); ++i) {
        if (word.at(i) != u'%' || i + 1 == word.size()) {
            result += word.at(i);
            continue;
        }
        switch (word.at(++i).unicode()) {
        case u'%':
            result += u'%';
            break;
        case u'c':
            result += entry.name;
            break;
        case u'k':
            result += entry.path;
            break;
        case u'u':
        case u'U':
            result += target;
            break;
        case u'f':
        case u'F':
            result += QUrl(target).isLocalFile() ? QUrl(target).toLocalFile() : target;
            break;
        default:
            break; // Among them the deprecated ones, which stand for nothing.
        }
    }
    return result;
}

} // namespace

QStringList words(const QString& command)
{
    int count = 0;
    char** parsed = nullptr;
    if (g_shell_parse_argv(command.toUtf8().constData(), &count, &parsed, nullptr) == FALSE) {
        return {};
    }
    const std::unique_ptr<char*, decltype(&g_strfreev)> owner(parsed, &g_strfreev);
    QStringList result;
    for (int i = 0; i < count; ++i) {
        result.append(QString::fromUtf8(parsed[i]));
    }
    return result;
}

QString firstWord(const QString& command)
{
    return words(command).value(0);
}

Program programOf(const QString& command)
{
    return programOf(words(command));
}

Program programOf(const QStringList& words)
{
    auto word = std::ranges::find_if_not(words, belongsToEnvironment);
    if (word == words.end() || isAmong(wrappers, baseName(*word))) {
        return {};
    }
    const QString runner = baseName(*word);
    if (isAmong(interpreters, runner) || runner.startsWith("python"_L1)) {
        const auto isOption = [](const QString& argument) {
            return argument.startsWith(u'-');
        };
        word = std::find_if_not(std::next(word), words.end(), isOption);
        // "-c" and "-m" are followed by what is no file.
        if (word == words.end() || *std::prev(word) == "-c"_L1 || *std::prev(word) == "-m"_L1) {
            return {};
        }
    }
    return {.name = *word, .hasArguments = !std::all_of(std::next(word), words.end(), isFieldCode)};
}

std::optional<QStringList> expanded(const DesktopEntry& entry, const QString& target)
{
    QStringList result;
    for (const QString& word : words(entry.command.toString())) {
        if (word == "%i"_L1) {
            if (!entry.icon.isEmpty()) {
                result += {u"--icon"_s, entry.icon.toString()};
            }
            continue;
        }
        const QString filled = filledIn(word, entry, target);
        if (!filled.isEmpty() || !isFieldCode(word)) {
            result.append(filled);
        }
    }
    return result.isEmpty() || result.first().isEmpty() ? std::nullopt : std::optional(result);
}

} // namespace Tavik::CommandLine
