// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/HeldKeyGuard.h>
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
        const KeyEvents& keyEvents;
    };

    /// Takes `ring` as its content.
    LauncherPanel(const Dependencies& dependencies, std::unique_ptr<RadialLauncherView> ring);
    ~LauncherPanel() override;

    [[nodiscard]] RadialLauncherView& ring() { return *m_ring; }

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
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setAcceptsKeyboard(bool accepts);

    Dependencies m_dependencies;
    RadialLauncherView* m_ring;
    QRectF m_frame; ///< As it was last asked for.
    HeldKeyGuard m_heldKeys;
    bool m_activates = false;
    bool m_isKey = false; ///< Has taken the keyboard since it was shown.
};

} // namespace Tavik
