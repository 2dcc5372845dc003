// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/UpdaterApplication.h>
#include <TavikLauncher/Views/Updates/UpdateWindow.h>
#include <TavikLauncherPlatform/ScreenPlane.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QApplication>

#include <algorithm>
#include <utility>

namespace Tavik {

namespace {

QList<UpdateWindow*> allUpdateWindows()
{
    QList<UpdateWindow*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* window = qobject_cast<UpdateWindow*>(widget);
        if (window && window->internalWinId()) {
            windows.append(window);
        }
    }
    return windows;
}

bool isShown(const UpdateWindow* window)
{
    return window->isVisible() && !window->isMinimized();
}

UpdateWindow* windowWithId(quint64 id)
{
    const QList<UpdateWindow*> windows = allUpdateWindows();
    const auto found = std::ranges::find(windows, id, &UpdateWindow::internalWinId);
    return found == windows.end() ? nullptr : *found;
}

UpdateActivation::Window described(const UpdateWindow& window)
{
    return {
        .id = window.internalWinId(),
        .className = QString::fromLatin1(window.metaObject()->className()),
        .controllerDescription = std::nullopt,
        .frame = ScreenPlane::flipped(QRectF(window.frameGeometry()), ScreenPlane::primaryBottom()),
        .isVisible = isShown(&window),
        .canBecomeKey = !window.windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus),
    };
}

} // namespace

UpdaterApplication::UpdaterApplication(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
{ }

bool UpdaterApplication::isActive() const
{
    return QApplication::activeWindow() != nullptr;
}

void UpdaterApplication::activateIgnoringOtherApps()
{
    const QList<UpdateWindow*> windows = allUpdateWindows();
    const auto shown = std::ranges::find_if(windows, isShown);
    if (!isActive() && shown != windows.end()) {
        (*shown)->activateWindow();
        m_dependencies.windowServer.takeKeyboardFocus((*shown)->internalWinId());
    }
}

QList<UpdateActivation::Window> UpdaterApplication::updaterWindows() const
{
    QList<UpdateActivation::Window> described;
    for (const UpdateWindow* window : allUpdateWindows()) {
        described.append(Tavik::described(*window));
    }
    return described;
}

void UpdaterApplication::setFrameOrigin(quint64 window, const QPointF& origin)
{
    if (UpdateWindow* moved = windowWithId(window)) {
        QRectF frame(moved->frameGeometry());
        frame.moveTo(origin);
        moved->move(ScreenPlane::flipped(frame, ScreenPlane::primaryBottom()).topLeft().toPoint());
    }
}

void UpdaterApplication::orderFrontRegardless(quint64 window)
{
    if (UpdateWindow* front = windowWithId(window)) {
        front->raise();
    }
}

void UpdaterApplication::orderKeyWindowFrontRegardless()
{
    if (QWidget* key = QApplication::activeWindow()) {
        key->raise();
    }
}

std::optional<Screen> UpdaterApplication::activeScreen() const
{
    return m_dependencies.activeScreen();
}

} // namespace Tavik
