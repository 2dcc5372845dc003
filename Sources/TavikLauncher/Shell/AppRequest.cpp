// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/AppRequest.h>

#include <QStringList>

#include <algorithm>
#include <array>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

struct NamedAction
{
    AppAction action;
    const char16_t* name;
};
constexpr std::array<NamedAction, 10> namedActions{{
    {AppAction::summon, u"summon"},
    {AppAction::showLauncher, u"show-launcher"},
    {AppAction::toggleLauncher, u"toggle-launcher"},
    {AppAction::hideLauncher, u"hide-launcher"},
    {AppAction::settings, u"settings"},
    {AppAction::reindex, u"reindex"},
    {AppAction::tour, u"tour"},
    {AppAction::checkForUpdates, u"check-for-updates"},
    {AppAction::checkDesktop, u"check-desktop"},
    {AppAction::quit, u"quit"},
}};

constexpr QStringView plainStart = u"activate";
constexpr QChar argumentSeparator = u'=';
constexpr QChar fieldSeparator = u'\t';

QByteArray activationField(const QString& field)
{
    const QByteArray text = field.toUtf8();
    return text.size() <= longestActivation ? text : QByteArray();
}

} // namespace

QString actionName(AppAction action)
{
    const auto found = std::ranges::find(namedActions, action, &NamedAction::action);
    return found == namedActions.end() ? QString() : QString::fromUtf16(found->name);
}

std::optional<AppAction> namedAction(const QString& name)
{
    const auto found = std::ranges::find_if(namedActions, [&name](const NamedAction& entry) {
        return name == QStringView(entry.name);
    });
    return found == namedActions.end() ? std::nullopt : std::optional(found->action);
}

QString lineOf(const AppRequest& request)
{
    const bool isNamed = request.action != AppAction::activate;
    QString line = isNamed ? actionName(request.action) : plainStart.toString();
    if (!request.argument.isEmpty()) {
        line += argumentSeparator + request.argument;
    }
    return line + fieldSeparator + QString::fromUtf8(request.activation.startupId) + fieldSeparator
        + QString::fromUtf8(request.activation.token);
}

std::optional<AppRequest> requestIn(const QString& line)
{
    const QStringList fields = line.split(fieldSeparator);
    const QString name = fields.front().section(argumentSeparator, 0, 0);
    const std::optional<AppAction> action = namedAction(name);
    if (!action && name != plainStart) {
        return std::nullopt;
    }
    return AppRequest{.action = action.value_or(AppAction::activate),
                      .argument
                      = fields.front().section(argumentSeparator, 1).left(longestArgument),
                      .activation = {.startupId = activationField(fields.value(1)),
                                     .token = activationField(fields.value(2))}};
}

} // namespace Tavik
