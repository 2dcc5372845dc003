// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Wayland/WaylandConnection.h>
#include <TavikLauncherPlatform/Linux/Wayland/WaylandPanel.h>
#include <TavikLauncherPlatform/Linux/Wayland/WaylandSentinels.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QPointer>

#include <functional>
#include <memory>
#include <optional>

namespace Tavik {

/// Our windows in a session whose compositor has the layer shell.
class WaylandWindowServer final : public QObject, public WindowServer
{
    Q_OBJECT

public:
    /// Null where the compositor lacks what this needs. `mainQueue` must outlive it.
    [[nodiscard]] static std::unique_ptr<WaylandWindowServer> make(MainQueue& mainQueue);
    ~WaylandWindowServer() override;

    /// Where the pointer is in the toolkit's plane; absent where the compositor does not tell.
    /// Takes a round trip or two, and 70 ms at most.
    [[nodiscard]] std::optional<QPointF> pointer();

    [[nodiscard]] Means pointerMeans() const override;
    [[nodiscard]] Means overlayMeans() const override;
    [[nodiscard]] bool isPanelManaged() const override { return false; }
    void preparePanel(WId window) override;
    [[nodiscard]] bool panelShown(WId window) override;
    void placePanel(WId window, const QRect& place) override;
    void panelHides(WId window) override;
    void setInputRegion(WId window, const QRegion& region) override;
    /// Only the desktop's own windows can ask for that.
    void setSkipsTaskbar(WId, bool) override { }
    /// The toolkit is not told where a window is, nor anybody but the desktop's own lists.
    void reportMoves(WId) override { }
    [[nodiscard]] bool toolkitKnowsPlaces() const override { return false; }
    [[nodiscard]] std::optional<QRect> placeOf(const QString& title) override;
    /// Answers `placeOf`; empty where nobody can.
    std::function<std::optional<QRect>(const QString& title)> findPlace;
    void takeKeyboardFocus(WId window) override;
    void takeKeyboardFocusForPanel() override;
    /// The compositor gives it back when the panel goes.
    void returnKeyboardFocus() override;
    [[nodiscard]] bool hasKeyboardFocus(WId window) const override;
    [[nodiscard]] bool isOnScreen(WId window) const override;
    [[nodiscard]] bool isCompositing() const override { return true; }
    void beginActivation(const Activation& activation) override;
    void endActivation() override;

private:
    explicit WaylandWindowServer(MainQueue& mainQueue);

    void focusChanged(const QWindow* focused);
    void expectKeyboard();
    void leave();
    void applyInputRegion();

    MainQueue& m_mainQueue;
    WaylandConnection m_connection;
    WaylandSentinels m_sentinels;
    WaylandPanel m_panel;
    QPointer<QWindow> m_window; ///< The panel's.
    QRect m_place; ///< Of the panel, in points of the toolkit's plane.
    QRegion m_inputRegion; ///< Of the panel, in its device pixels.
    bool m_isWatched = false; ///< The panel is to have the keyboard.
    bool m_hadFocus = false;
    Task m_unusedTask; ///< Hides sentinels that were only asked for the pointer.
    Task m_checkTask; ///< Whether the keyboard has been had in the end.
};

} // namespace Tavik
