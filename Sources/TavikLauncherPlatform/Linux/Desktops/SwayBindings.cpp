// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/KeyNames.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayBindings.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <functional>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestConfiguration = 1024 * 1024; // In characters, as below.
constexpr qsizetype longestLine = 4096;

/// A modifier's flag by its name in a binding, or by that of a key that is one; 0 for others.
quint64 flagNamed(const QString& name)
{
    static const QHash<QString, quint64> flags{
        {u"shift"_s, ModifierFlags::shift},
        {u"control"_s, ModifierFlags::control},
        {u"ctrl"_s, ModifierFlags::control},
        {u"mod1"_s, ModifierFlags::option},
        {u"alt"_s, ModifierFlags::option},
        {u"meta"_s, ModifierFlags::option},
        {u"mod4"_s, ModifierFlags::command},
        {u"super"_s, ModifierFlags::command},
        {u"logo"_s, ModifierFlags::command},
    };
    const bool isKey = name.endsWith(u"_l"_s) || name.endsWith(u"_r"_s);
    return flags.value(isKey ? name.chopped(2) : name);
}

/// Each variable in a line replaced by its value, long names first. Empty for what grows beyond any
/// use: values may hold other values, twice each.
QString expanded(QString line, const QHash<QString, QString>& variables)
{
    QStringList names = variables.keys();
    std::ranges::sort(names, std::greater(), &QString::size);
    for (const QString& name : names) {
        if (line.size() <= longestLine) {
            line.replace(name, variables.value(name));
        }
    }
    return line.size() <= longestLine ? line : QString();
}

} // namespace

SwayBindings::SwayBindings(const QString& configuration)
{
    QHash<QString, QString> variables;
    QStringList blocks; // The open ones, by the words that began them.
    const QString whole = configuration.left(longestConfiguration).replace(u"\\\n"_s, u" "_s);
    for (const QString& told : whole.split(u'\n')) {
        const QString line = expanded(told.simplified(), variables);
        const QString word = line.section(u' ', 0, 0);
        const bool isBound = word == u"bindsym" || word == u"bindcode";
        if (told.simplified().startsWith(u"set $"_s)) {
            variables.insert(told.simplified().section(u' ', 1, 1), line.section(u' ', 2));
        } else if (line.endsWith(u'{')) {
            blocks << word;
        } else if (line == u"}" && !blocks.isEmpty()) {
            blocks.removeLast();
        } else if (isBound && blocks.isEmpty()) {
            addBinding(line.section(u' ', 1));
        } else if (blocks == QStringList{u"bindsym"_s} || blocks == QStringList{u"bindcode"_s}) {
            addBinding(line);
        }
    }
}

void SwayBindings::addBinding(const QString& words)
{
    QStringList rest = words.split(u' ', Qt::SkipEmptyParts);
    while (!rest.isEmpty() && rest.front().startsWith(u"--"_s)) {
        rest.removeFirst();
    }
    if (rest.size() < 2 || rest.front().startsWith(u'#')) {
        return;
    }
    Binding binding;
    for (const QString& name : rest.takeFirst().toLower().split(u'+')) {
        const quint64 flag = flagNamed(name);
        binding.modifierFlags |= flag;
        if (flag == 0) {
            binding.key = name;
        }
    }
    binding.command = rest.join(u' ');
    m_bindings << binding;
}

std::optional<QString> SwayBindings::commandAt(const KeyEvents::HotKey& hotKey) const
{
    QStringList names{QString()};
    if (hotKey.keyCode) {
        const std::optional<quint16> code = KeyCodes::evdevCode(*hotKey.keyCode);
        names = {hotKey.label.toLower(),
                 KeyNames::acceleratorKey(*hotKey.keyCode).value_or(QString()).toLower(),
                 code ? QString::number(*code + KeyCodes::x11Offset) : QString()};
        names.removeAll(QString());
    }
    const auto found = std::ranges::find_if(m_bindings, [&](const Binding& binding) {
        return binding.modifierFlags == hotKey.modifierFlags && names.contains(binding.key);
    });
    return found == m_bindings.end() ? std::nullopt : std::optional(found->command);
}

} // namespace Tavik
