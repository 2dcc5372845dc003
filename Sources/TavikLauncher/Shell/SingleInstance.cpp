// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/SingleInstance.h>

#include <QLoggingCategory>

#include <optional>

namespace Tavik {

namespace {
Q_LOGGING_CATEGORY(log, "tavik.shell")
}

bool SingleInstance::listen()
{
    m_bus.onRequest = [this](const AppRequest& request) {
        perform(request);
    };
    m_bus.onCheckDesktop = [this] {
        return onCheckDesktop ? onCheckDesktop() : QString();
    };
    m_socket.onQuestion = [this](const QString& line) {
        const std::optional<AppRequest> request = requestIn(line);
        const bool isQuestion = request && request->action == AppAction::checkDesktop;
        return isQuestion && onCheckDesktop ? std::optional(onCheckDesktop()) : std::nullopt;
    };
    m_socket.onLine = [this](const QString& line) {
        if (const std::optional<AppRequest> request = requestIn(line)) {
            perform(*request);
        }
    };
    const InstanceBus::Claim claim = m_bus.claim();
    if (claim == InstanceBus::Claim::taken) {
        return false;
    }
    if (!m_socket.listen() && claim == InstanceBus::Claim::unavailable) {
        qCInfo(log, "neither a session bus nor a runtime folder: no other start reaches this one");
    }
    return true;
}

void SingleInstance::giveUp()
{
    m_socket.close();
    m_bus.giveUp();
}

void SingleInstance::perform(const AppRequest& request) const
{
    if (onRequest) {
        onRequest(request);
    }
}

} // namespace Tavik
