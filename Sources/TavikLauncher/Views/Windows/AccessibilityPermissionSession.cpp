// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Windows/AccessibilityPermissionSession.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

#include <utility>

namespace Tavik {

namespace {

constexpr double pollSeconds = 1;

} // namespace

AccessibilityPermissionSession::AccessibilityPermissionSession(AccessibilityPermission& permission,
                                                               MainQueue& mainQueue,
                                                               Actions actions)
    : m_permission(permission)
    , m_mainQueue(mainQueue)
    , m_actions(std::move(actions))
    , m_obstacle(permission.obstacle())
{ }

void AccessibilityPermissionSession::appear()
{
    if (m_permission.isTrusted()) {
        m_actions.onGranted();
    }
    m_poll = m_mainQueue.every(pollSeconds, [this] { poll(); });
}

void AccessibilityPermissionSession::disappear()
{
    if (m_poll.isActive()) {
        // One last look: what was granted in this very second must not wait for the next start.
        poll();
        m_poll.cancel();
    }
}

void AccessibilityPermissionSession::enableAccess()
{
    if (m_actions.onEnable) {
        m_actions.onEnable();
    }
    m_permission.prompt();
    m_phase = Phase::waitingForUser;
    Q_EMIT changed();
}

void AccessibilityPermissionSession::openSettings()
{
    m_permission.openSettings([session = QPointer(this)] {
        if (session) {
            session->copyCommand();
        }
    });
}

void AccessibilityPermissionSession::copyCommand()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("tavik-launcher --summon"));
    m_hasCopiedCommand = true;
    Q_EMIT changed();
}

void AccessibilityPermissionSession::done()
{
    if (m_permission.isTrusted()) {
        grant();
        return;
    }
    m_showsNotEnabledHint = true;
    Q_EMIT changed();
}

void AccessibilityPermissionSession::skip()
{
    m_actions.onDismiss();
}

void AccessibilityPermissionSession::poll()
{
    if (m_permission.isTrusted()) {
        m_poll.cancel();
        grant();
    }
}

void AccessibilityPermissionSession::grant()
{
    m_actions.onGranted();
    m_phase = Phase::granted;
    Q_EMIT changed();
}

} // namespace Tavik
