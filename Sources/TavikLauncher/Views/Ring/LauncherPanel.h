// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/HeldKeyGuard.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/PanelSurface.h>

#include <QWidget>

namespace Tavik {

class KeyEvents;
struct LauncherCommands;
class RadialLauncherView;
class WindowServer;

/// The borderless floating window that holds the ring: above all others, on every desktop, in no
/// taskbar. Turns key presses into ring commands. Owned by the panel controller.
class LauncherPanel final : public QWidget, public PanelSurface
{
    Q_OBJECT

public:
    struct Dependencies
    {
        LauncherCommands& commands;
        WindowServer& windowServer;
        MainQueue& mainQueue;
        const KeyEvents& keyEvents;
    };

    /// Takes `ring` as its content.
    LauncherPanel(const Dependencies& dependencies, std::unique_ptr<RadialLauncherView> ring);
    ~LauncherPanel() override;

    [[nodiscard]] RadialLauncherView& ring() { return *m_ring; }

    /// While a chord is held its modifiers would turn what is typed into the desktop's own
    /// shortcuts; this keeps every key here, until the panel goes or it is called again.
    void setHoldsKeyboard(bool holds);

    /// Makes the native window and everything that a first showing would be slow for.
    void warmUp();

    [[nodiscard]] bool isVisible() const override { return QWidget::isVisible(); }
    [[nodiscard]] QRectF frame() const override;
    void setFrame(const QRectF& frame) override;
    [[nodiscard]] bool isComposited() const override;
    void activateApplication() override;
    void orderFrontRegardless() override;
    void makeKeyAndOrderFront() override;
    void orderOut() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void deactivated();
    void setAcceptsKeyboard(bool accepts);
    void updateKeyboardGrab();
    [[nodiscard]] bool hasLostKeyboard() const;

    Dependencies m_dependencies;
    RadialLauncherView* m_ring;
    HeldKeyGuard m_heldKeys;
    Task m_focusWatch; ///< Runs while the toolkit's word on the focus is in doubt.
    bool m_activates = false;
    bool m_isKey = false; ///< Has had the keyboard since it was shown.
    bool m_isOrderingOut = false;
    bool m_holdsKeyboard = false;
    bool m_grabsKeyboard = false;
    Task m_grabRetry; ///< Runs while the keyboard is wanted and cannot be had.
};

} // namespace Tavik
