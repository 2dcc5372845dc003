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
        m_poll.cancel();
        // One last look: what was granted in this very second must not wait for the next start.
        if (m_permission.isTrusted()) {
            grant();
        }
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
    QGuiApplication::clipboard()->setText(m_obstacle.command);
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
        return;
    }
    // A desktop may answer late, or with no.
    const AccessibilityPermission::Obstacle now = m_permission.obstacle();
    if (std::exchange(m_obstacle, now) != now) {
        Q_EMIT changed();
    }
}

void AccessibilityPermissionSession::grant()
{
    m_actions.onGranted();
    m_phase = Phase::granted;
    Q_EMIT changed();
}

} // namespace Tavik
