// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/SwayShortcuts.h>
#include <TavikLauncherPlatform/Linux/Session/KeyCodes.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QLoggingCategory>

#include <algorithm>
#include <array>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(log, "tavik.platform.desktops")

constexpr qsizetype longestCommand = 60; // Of what people read.
constexpr QLatin1String pressCommand("nop tavik-launcher press");
constexpr QLatin1String releaseCommand("nop tavik-launcher release");

struct Modifier
{
    quint64 flag;
    QLatin1String name; ///< In a binding, and in the events of one.
    /// What its keys are called; with Shift held some have another name.
    std::array<QLatin1String, 4> keys;
};
constexpr auto modifiers = std::to_array<Modifier>({
    {ModifierFlags::control,
     QLatin1String("Ctrl"),
     {QLatin1String("Control_L"), QLatin1String("Control_R")}},
    {ModifierFlags::option,
     QLatin1String("Mod1"),
     {QLatin1String("Alt_L"),
      QLatin1String("Alt_R"),
      QLatin1String("Meta_L"),
      QLatin1String("Meta_R")}},
    {ModifierFlags::shift,
     QLatin1String("Shift"),
     {QLatin1String("Shift_L"), QLatin1String("Shift_R")}},
    {ModifierFlags::command,
     QLatin1String("Mod4"),
     {QLatin1String("Super_L"), QLatin1String("Super_R")}},
});

/// Each binding is given for each of these layouts, as many as a keyboard can have. A binding of
/// the user's own with the same keys names none: ours stands above it, and not in its place.
constexpr auto groups = std::to_array<QLatin1String>({QLatin1String("Group1+"),
                                                      QLatin1String("Group2+"),
                                                      QLatin1String("Group3+"),
                                                      QLatin1String("Group4+")});

/// With a "+" behind each.
QString namesOf(quint64 flags)
{
    QString names;
    for (const Modifier& modifier : modifiers) {
        if ((flags & modifier.flag) != 0) {
            names += modifier.name + u'+';
        }
    }
    return names;
}

QStringList inAllGroups(const QString& command, const QString& keys)
{
    QStringList all;
    for (const QLatin1String group : groups) {
        all << command + group + keys;
    }
    return all;
}

/// What sway says was held, under whichever of its names.
quint64 flagsNamed(const QJsonArray& names)
{
    quint64 flags = 0;
    for (const Modifier& modifier : modifiers) {
        flags |= names.contains(QString(modifier.name)) ? modifier.flag : 0;
    }
    return flags | (names.contains(u"Control"_s) ? ModifierFlags::control : 0)
        | (names.contains(u"Alt"_s) ? ModifierFlags::option : 0);
}

} // namespace

SwayShortcuts::SwayShortcuts(const QString& socketPath)
    : m_sway(socketPath)
{
    m_sway.onMessage = [this](quint32 type, const QJsonDocument& message) {
        receive(type, message);
    };
    m_sway.onClosed = [this] {
        lose(statusGone);
    };
    m_sway.send(SwayConnection::Request::subscribe, R"(["binding","workspace"])");
    m_sway.send(SwayConnection::Request::configuration);
}

SwayShortcuts::~SwayShortcuts()
{
    m_sway.onMessage = nullptr;
    m_sway.onClosed = nullptr;
    unbind();
}

Means SwayShortcuts::means() const
{
    const auto own = m_bound ? m_own.commandAt(*m_bound) : std::nullopt;
    return {.way = Texts::tr("Bindings that sway holds while Tavik Launcher runs."),
            .lack = own ? Texts::tr("Its configuration uses the same keys for “%1”, which rests "
                                    "while Tavik Launcher runs.")
                              .arg(own->left(longestCommand))
                        : QString()};
}

int SwayShortcuts::status(const KeyEvents::HotKey& hotKey)
{
    const int result = refusal(hotKey);
    return result == 0 && m_own.commandAt(hotKey) ? statusTaken : result;
}

int SwayShortcuts::refusal(const KeyEvents::HotKey& hotKey) const
{
    if (!m_sway.isOpen()) {
        return statusGone;
    }
    return hotKey.keyCode && !KeyCodes::evdevCode(*hotKey.keyCode) ? statusNoSuchKey : 0;
}

int SwayShortcuts::bind(const KeyEvents::HotKey& hotKey, Handlers handlers)
{
    unbind();
    const int result = refusal(hotKey);
    m_isRefused = result != 0;
    if (result == 0) {
        m_bound = hotKey;
        m_handlers = std::move(handlers);
        giveBindings();
    }
    return result;
}

void SwayShortcuts::unbind()
{
    if (m_bound) {
        QStringList commands;
        for (const QString& keys : keysOf(*m_bound)) {
            commands << u"un"_s + keys << u"un"_s + QString(keys).replace(u' ', u" --release "_s);
        }
        m_asked << false;
        m_sway.send(SwayConnection::Request::runCommand, commands.join(u';').toUtf8());
    }
    m_bound.reset();
    m_handlers = {};
}

QStringList SwayShortcuts::keysOf(const KeyEvents::HotKey& hotKey)
{
    if (hotKey.keyCode) {
        const std::optional<quint16> code = KeyCodes::evdevCode(*hotKey.keyCode);
        const int place = code ? *code + KeyCodes::x11Offset : 0;
        return inAllGroups(u"bindcode "_s, namesOf(hotKey.modifierFlags) + QString::number(place));
    }
    QStringList keys;
    for (const Modifier& last : modifiers) {
        if ((hotKey.modifierFlags & last.flag) == 0) {
            continue;
        }
        for (const QLatin1String key : last.keys) {
            if (!key.isEmpty()) {
                keys << inAllGroups(u"bindsym "_s,
                                    namesOf(hotKey.modifierFlags & ~last.flag) + key);
            }
        }
    }
    return keys;
}

void SwayShortcuts::giveBindings()
{
    QStringList commands;
    for (const QString& keys : keysOf(*m_bound)) {
        commands << QString(keys).replace(u' ', u" --no-repeat "_s) + u' ' + pressCommand
                 << QString(keys).replace(u' ', u" --release "_s) + u' ' + releaseCommand;
    }
    m_asked << true;
    m_sway.send(SwayConnection::Request::runCommand, commands.join(u';').toUtf8());
}

void SwayShortcuts::receive(quint32 type, const QJsonDocument& message)
{
    using Event = SwayConnection::Event;
    const QString change = message[u"change"].toString();
    if (type == static_cast<quint32>(SwayConnection::Request::runCommand)) {
        if (!m_asked.isEmpty() && m_asked.takeFirst()) {
            checkOutcome(message.array());
        }
    } else if (type == static_cast<quint32>(Event::workspace) && change == u"reload") {
        m_sway.send(SwayConnection::Request::configuration);
        if (m_bound) {
            giveBindings();
        }
    } else if (type == static_cast<quint32>(SwayConnection::Request::configuration)) {
        m_own = SwayBindings(message[u"config"].toString());
    } else if (type == static_cast<quint32>(Event::binding) && change == u"run") {
        bindingRan(message[u"binding"].toObject());
    }
}

void SwayShortcuts::checkOutcome(const QJsonArray& results)
{
    const auto refused = std::ranges::find_if(
        results, [](const QJsonValue& result) { return !result[u"success"].toBool(); });
    if (m_bound && refused != results.end()) {
        qCWarning(log,
                  "sway does not take the shortcut: %ls",
                  qUtf16Printable((*refused)[u"error"].toString().left(80)));
        lose(statusTaken);
    }
}

void SwayShortcuts::bindingRan(const QJsonObject& binding)
{
    const QString command = binding[u"command"].toString();
    // Copied, because whoever is told may bind anew.
    const Handlers handlers = m_handlers;
    if (command == pressCommand && handlers.pressed) {
        handlers.pressed();
    } else if (command == releaseCommand && handlers.released) {
        handlers.released();
    } else if (m_bound && !m_bound->keyCode && handlers.joined && command != pressCommand
               && command != releaseCommand) {
        const quint64 held = flagsNamed(binding[u"event_state_mask"].toArray());
        if ((held & m_bound->modifierFlags) == m_bound->modifierFlags) {
            handlers.joined();
        }
    }
}

void SwayShortcuts::lose(int status)
{
    m_isRefused = true;
    m_bound.reset();
    if (const Handlers handlers = std::exchange(m_handlers, {}); handlers.lost) {
        handlers.lost(status);
    }
}

} // namespace Tavik
