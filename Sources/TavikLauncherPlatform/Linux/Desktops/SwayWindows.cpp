// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Desktops/SwayWindows.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

struct Tree
{
    QList<ToldWindows::Window> windows;
    std::optional<QString> focused; ///< The name of a window, or empty for an empty workspace.
};

/// Exact in a document's numbers, which are as large as sway's own can be.
QString nameOf(const QJsonObject& node)
{
    return QString::number(node[u"id"_s].toInteger());
}

QRect placeIn(const QJsonObject& told)
{
    return {told[u"x"_s].toInt(),
            told[u"y"_s].toInt(),
            told[u"width"_s].toInt(),
            told[u"height"_s].toInt()};
}

WindowSource::Facts factsOf(const QJsonObject& node)
{
    const QJsonObject ofX = node[u"window_properties"_s].toObject();
    const QString applicationId = node[u"app_id"_s].toString();
    const QString type = ofX[u"window_type"_s].toString(u"normal"_s);
    WindowSource::Facts facts;
    facts.clues.applicationId = applicationId;
    facts.clues.instanceName = ofX[u"instance"_s].toString();
    facts.clues.className = ofX.isEmpty() ? applicationId : ofX[u"class"_s].toString();
    facts.isOnTaskbar = type == u"normal" || type == u"dialog" || type == u"unknown";
    facts.processId = node[u"pid"_s].toInteger();
    return facts;
}

/// Below a node of the tree. The document's own depth is limited by whoever has read it.
void collect(const QJsonObject& node, Tree& tree) // NOLINT(misc-no-recursion)
{
    const bool isWindow = node[u"pid"_s].toInteger() > 0;
    if (isWindow) {
        tree.windows.append({.name = nameOf(node),
                             .facts = factsOf(node),
                             .title = node[u"name"_s].toString(),
                             .place = placeIn(node[u"rect"_s].toObject())});
    }
    if (node[u"focused"_s].toBool()) {
        tree.focused = isWindow ? nameOf(node) : QString();
    }
    for (const QString& children : {u"nodes"_s, u"floating_nodes"_s}) {
        for (const QJsonValue& child : node[children].toArray()) {
            collect(child.toObject(), tree);
        }
    }
}

} // namespace

SwayWindows::SwayWindows(const QString& socketPath)
    : m_sway(socketPath)
{
    m_sway.onMessage = [this](quint32 type, const QJsonDocument& message) {
        receive(type, message);
    };
    m_sway.onClosed = [this] {
        lose();
    };
    m_sway.send(SwayConnection::Request::subscribe, R"(["window","workspace"])");
    ask();
}

SwayWindows::~SwayWindows()
{
    m_sway.onMessage = nullptr;
    m_sway.onClosed = nullptr;
}

Means SwayWindows::runningMeans() const
{
    return {.way = Texts::tr("sway lists its windows."),
            .lack = isOpen() ? QString() : Texts::tr("The desktop does not answer.")};
}

Means SwayWindows::raisingMeans() const
{
    return {.way = Texts::tr("sway's command to focus a window."), .lack = runningMeans().lack};
}

std::optional<QRect> SwayWindows::placeOfOwn(const QString& title)
{
    ask();
    return ToldWindows::placeOfOwn(title);
}

void SwayWindows::raise(const QString& name)
{
    m_sway.send(SwayConnection::Request::runCommand, u"[con_id=%1] focus"_s.arg(name).toUtf8());
}

void SwayWindows::ask()
{
    m_mustAskAgain = m_isAsked;
    if (!std::exchange(m_isAsked, true)) {
        m_sway.send(SwayConnection::Request::tree);
    }
}

void SwayWindows::receive(quint32 type, const QJsonDocument& message)
{
    if (type == static_cast<quint32>(SwayConnection::Event::window)
        || type == static_cast<quint32>(SwayConnection::Event::workspace)) {
        // None of these says anything of whose a window is, or that it is another's turn.
        static const std::array<QString, 4> idle{
            u"title"_s, u"fullscreen_mode"_s, u"urgent"_s, u"mark"_s};
        if (!std::ranges::count(idle, message[u"change"].toString())) {
            ask();
        }
    } else if (type == static_cast<quint32>(SwayConnection::Request::tree)) {
        Tree tree;
        collect(message.object(), tree);
        m_isAsked = false;
        take(tree.windows, tree.focused);
        if (std::exchange(m_mustAskAgain, false)) {
            ask();
        }
    }
}

} // namespace Tavik
