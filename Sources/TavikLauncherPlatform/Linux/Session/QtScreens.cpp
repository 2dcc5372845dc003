// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/QtScreens.h>
#include <TavikLauncherPlatform/ScreenPlane.h>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <utility>

namespace Tavik {

namespace {

/// A screen's place in device pixels: the toolkit scales the size and leaves the origin alone.
QRect deviceGeometry(const QScreen& screen)
{
    const QSizeF size = QSizeF(screen.geometry().size()) * screen.devicePixelRatio();
    return {screen.geometry().topLeft(), size.toSize()};
}

/// The toolkit's rectangle for one in the device pixels of `screen`.
QRectF scaled(const QRect& device, const QScreen& screen)
{
    const QPointF origin = screen.geometry().topLeft();
    const double ratio = screen.devicePixelRatio();
    return {origin + (QPointF(device.topLeft()) - origin) / ratio, QSizeF(device.size()) / ratio};
}

} // namespace

QtScreens::QtScreens(Hooks hooks)
    : m_hooks(std::move(hooks))
{ }

QList<Screen> QtScreens::all() const
{
    QList<Screen> screens;
    for (const QScreen* screen : QGuiApplication::screens()) {
        screens.append(described(*screen));
    }
    return screens;
}

std::optional<Screen> QtScreens::main() const
{
    const QScreen* screen = focusedScreen();
    if (!screen) {
        screen = QGuiApplication::screenAt(QCursor::pos());
    }
    if (!screen) {
        screen = QGuiApplication::primaryScreen();
    }
    return screen ? std::optional(described(*screen)) : std::nullopt;
}

QPointF QtScreens::mouseLocation() const
{
    // On X11 this asks the server, so it is true also when no window of ours sees the pointer.
    return ScreenPlane::flipped(QCursor::pos(), ScreenPlane::primaryBottom());
}

Screen QtScreens::described(const QScreen& screen) const
{
    QRectF available = screen.availableGeometry();
    if (m_hooks.availableArea) {
        // The toolkit knows one work area for the whole desktop, which says nothing when there are
        // several screens; one that was plugged in later keeps it nevertheless.
        if (QGuiApplication::screens().size() > 1) {
            available = screen.geometry();
        }
        available &= scaled(m_hooks.availableArea(deviceGeometry(screen)), screen);
    }
    if (available.isEmpty()) {
        available = screen.geometry();
    }
    const double primaryBottom = ScreenPlane::primaryBottom();
    return {.frame = ScreenPlane::flipped(QRectF(screen.geometry()), primaryBottom),
            .visibleFrame = ScreenPlane::flipped(available, primaryBottom)};
}

const QScreen* QtScreens::focusedScreen() const
{
    const std::optional<QPoint> point
        = m_hooks.focusedPoint ? m_hooks.focusedPoint() : std::nullopt;
    if (!point) {
        return nullptr;
    }
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (deviceGeometry(*screen).contains(*point)) {
            return screen;
        }
    }
    return nullptr;
}

} // namespace Tavik
