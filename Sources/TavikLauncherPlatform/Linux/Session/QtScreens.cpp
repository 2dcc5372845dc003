// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/QtScreens.h>
#include <TavikLauncherPlatform/ScreenPlane.h>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
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
    return {ScreenPlane::fromDevice(device.topLeft(), screen),
            QSizeF(device.size()) / screen.devicePixelRatio()};
}

const QScreen* screenAt(QPoint devicePixel)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto found = std::ranges::find_if(screens, [devicePixel](const QScreen* screen) {
        return deviceGeometry(*screen).contains(devicePixel);
    });
    return found == screens.end() ? nullptr : *found;
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
    return ScreenPlane::flipped(pointer(), ScreenPlane::primaryBottom());
}

QPointF QtScreens::pointer() const
{
    if (m_hooks.pointerInPoints) {
        const QScreen* screen = QGuiApplication::primaryScreen();
        return m_hooks.pointerInPoints().value_or(screen ? QRectF(screen->geometry()).center()
                                                         : QPointF());
    }
    // The toolkit tells whole points only, which are several pixels on a dense screen.
    const std::optional<QPoint> pixel = m_hooks.pointer ? m_hooks.pointer() : std::nullopt;
    const QScreen* screen = pixel ? screenAt(*pixel) : nullptr;
    return screen ? ScreenPlane::fromDevice(*pixel, *screen) : QCursor::pos();
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
    return point ? screenAt(*point) : nullptr;
}

} // namespace Tavik
