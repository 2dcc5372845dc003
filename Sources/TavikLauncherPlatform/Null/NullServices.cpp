// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Null/NullServices.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace Tavik {

namespace {

const QWindow* windowWithId(WId id)
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    // Asking a window for its id would create it, so only created ones are asked.
    const auto found = std::ranges::find_if(
        windows, [id](const QWindow* window) { return window->handle() && window->winId() == id; });
    return found == windows.end() ? nullptr : *found;
}

} // namespace

Means NullWindowServer::pointerMeans() const
{
    return {.way = Texts::tr("The desktop places the ring."),
            .lack = Texts::tr("This desktop tells no program where the pointer is.")};
}

Means NullWindowServer::overlayMeans() const
{
    return {.way = Texts::tr("A window like any other."),
            .lack = Texts::tr("This desktop lets no program keep a window above the others.")};
}

void NullWindowServer::preparePanel(WId) { }

void NullWindowServer::setInputRegion(WId, const QRegion&) { }

void NullWindowServer::setSkipsTaskbar(WId, bool) { }

void NullWindowServer::reportMoves(WId) { }

void NullWindowServer::takeKeyboardFocus(WId) { }

void NullWindowServer::takeKeyboardFocusForPanel() { }

void NullWindowServer::returnKeyboardFocus() { }

bool NullWindowServer::hasKeyboardFocus(WId window) const
{
    const QWindow* focused = QGuiApplication::focusWindow();
    return focused && focused == windowWithId(window);
}

bool NullWindowServer::isOnScreen(WId window) const
{
    const QWindow* found = windowWithId(window);
    return found && found->isExposed();
}

bool NullWindowServer::isCompositing() const
{
    return true;
}

void NullWindowServer::beginActivation(const Activation&) { }

void NullWindowServer::endActivation() { }

void NullUpdater::checkForUpdates()
{
    if (m_driver) {
        m_driver->showUpdateNotFound(m_reason, nullptr);
    }
}

} // namespace Tavik
