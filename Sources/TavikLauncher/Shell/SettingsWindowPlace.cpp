// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AuxiliaryWindow.h>
#include <TavikLauncher/Ring/PanelPlacement.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncher/Shell/SettingsWindowPlace.h>
#include <TavikLauncher/Views/SettingsWindow/LauncherSettingsView.h>
#include <TavikLauncherPlatform/ScreenPlane.h>

#include <QWindow>

#include <algorithm>

namespace Tavik {

using ScreenPlane::primaryBottom;

namespace {

/// A window manager takes its time to put its frame around a window, and moves the window by it.
constexpr double settlingStep = 0.03;
constexpr int settlingAttempts = 20;
/// Points by which a window may stand aside: by rounding, or as its manager likes it.
constexpr int placingTolerance = 2;

} // namespace

SettingsWindowPlace::SettingsWindowPlace(const Dependencies& dependencies, AuxiliaryWindow& window)
    : m_dependencies(dependencies)
    , m_window(window)
{ }

void SettingsWindowPlace::place(const Screen& screen)
{
    m_visibleFrame = screen.visibleFrame;
    move();
}

void SettingsWindowPlace::move()
{
    m_placedBorder = border().expandedTo({0, 0});
    SettingsPreviewLayout::Request request = layoutOn(m_visibleFrame);
    // On a low screen the window is lower, and its title bar stays within reach of the pointer.
    const double lowest = m_window.minimumHeight() + m_placedBorder.height();
    request.dialogSize.setHeight(
        std::max(lowest, std::min(request.dialogSize.height(), m_visibleFrame.height())));
    QRectF wanted = SettingsPreviewLayout::compute(request).dialogFrame;
    wanted.moveBottom(std::min(wanted.bottom(), m_visibleFrame.bottom()));
    const QRectF target = ScreenPlane::flipped(wanted, primaryBottom());
    m_placedAt = target.topLeft().toPoint();
    if (m_placedBorder.isNull()) {
        m_window.resize(target.size().toSize());
        m_window.move(m_placedAt);
        return;
    }
    // The widget may not know of its new frame yet, and would take itself to be there already.
    m_window.setGeometry(QRect(m_placedAt, target.size().toSize())
                             .marginsRemoved(m_window.windowHandle()->frameMargins()));
}

void SettingsWindowPlace::settle()
{
    m_settling = m_dependencies.mainQueue.after(0, [this] { settle(1); });
}

void SettingsWindowPlace::settle(int attempt)
{
    if (!m_window.isVisible() || m_window.isMinimized()) {
        return;
    }
    const QSize now = border();
    const QPoint offset = m_window.windowHandle()->frameGeometry().topLeft() - m_placedAt;
    const bool isSettled = now == m_placedBorder && offset.manhattanLength() <= placingTolerance;
    if (now.isValid() && !isSettled) {
        move();
    }
    const bool mayBeBare = now.isNull();
    if (attempt < settlingAttempts && (!isSettled || mayBeBare)) {
        m_settling = m_dependencies.mainQueue.after(settlingStep,
                                                    [this, attempt] { settle(attempt + 1); });
    }
}

QRectF SettingsWindowPlace::frame() const
{
    if (!m_dependencies.windowServer.toolkitKnowsPlaces()) {
        const QRect screen = m_window.screen()->geometry();
        QRect middle(QPoint(), m_window.size());
        middle.moveCenter(screen.center());
        QRect told = m_dependencies.windowServer.placeOf(m_window.windowTitle()).value_or(middle);
        // A window that fills its screen has nothing to show at its right.
        told.setWidth(std::min(told.width(), LauncherSettingsView::preferredSize.width()));
        return ScreenPlane::flipped(QRectF(told), primaryBottom());
    }
    const QRect frame
        = border().isValid() ? m_window.windowHandle()->frameGeometry() : m_window.geometry();
    return ScreenPlane::flipped(QRectF(frame), primaryBottom());
}

std::optional<SettingsPreviewLayout::Result> SettingsWindowPlace::previewLayout() const
{
    const QList<Screen> all = m_dependencies.screens.all();
    const Screen* around = PanelPlacement::screenShowing(frame().center(), all);
    const std::optional<Screen> screen
        = around ? std::optional(*around) : m_dependencies.screens.main();
    if (!screen) {
        return std::nullopt;
    }
    return SettingsPreviewLayout::following(
        layoutOn(screen->visibleFrame), frame(), m_dependencies.settings.ringDiameter());
}

QSize SettingsWindowPlace::border() const
{
    // The toolkit may have asked while the frame was one pixel large.
    const QMargins margins = m_window.windowHandle()->frameMargins();
    return {margins.left() + margins.right(), margins.top() + margins.bottom()};
}

SettingsPreviewLayout::Request SettingsWindowPlace::layoutOn(const QRectF& visibleFrame) const
{
    return {
        .visibleFrame = visibleFrame,
        .dialogSize = QSizeF(LauncherSettingsView::preferredSize.width(), frame().height()),
        .dialogMinWidth = static_cast<double>(LauncherSettingsView::smallestSize.width()),
    };
}

} // namespace Tavik
