// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Ring/RingInteraction.h>
#include <TavikLauncher/Views/Ring/PanelShape.h>
#include <TavikLauncher/Views/Ring/RingImageCache.h>
#include <TavikLauncher/Views/Ring/RingPointer.h>
#include <TavikLauncher/Views/Ring/RingStage.h>

#include <QWidget>

#include <functional>

namespace Tavik {

class DesktopAppearance;
class FilterField;
class WindowServer;

/// The ring on the screen: paints the interaction's state and forwards the pointer to it. While the
/// panel is hidden it draws the next summon's ring ahead, so that a summon decodes nothing and
/// starts with one blit. Owned by the panel.
class RadialLauncherView final : public QWidget
{
    Q_OBJECT

public:
    struct Dependencies
    {
        RingInteraction::Dependencies ring;
        QString ownIdentifier;
        IconDecoder& iconDecoder;
        WindowServer& windowServer;
        DesktopAppearance& appearance;
        std::function<void()> onClose;
        std::function<void()> onFillRing = {}; ///< Leads to where an empty ring is filled.
    };

    explicit RadialLauncherView(const Dependencies& dependencies, QWidget* parent = nullptr);
    ~RadialLauncherView() override;

    [[nodiscard]] RingInteraction& interaction() { return m_interaction; }
    [[nodiscard]] const RingInteraction& interaction() const { return m_interaction; }
    /// Everything as it is to be drawn now.
    [[nodiscard]] const RingScene& scene() { return m_stage.scene(); }
    /// The slot's icon, in this widget's plane.
    [[nodiscard]] QRect slotRect(int slot) const { return m_stage.slotRect(slot); }
    [[nodiscard]] FilterField& filterField() { return *m_filterField; }

    /// Draws the ring of the next summon now.
    void renderAhead();
    /// The panel's shape where no compositor blends it; the whole rectangle otherwise.
    void updateShape();
    /// The panel stands somewhere else.
    void panelMoved() { m_shape.placed(); }

Q_SIGNALS:
    void selectionChanged();
    void slotsChanged();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    [[nodiscard]] RingStage::Sources stageSources();
    [[nodiscard]] bool isOnInvitation(QPointF position);

    void connectInteraction();
    void connectSurroundings();
    void ringChanged();
    void highlightMoved(bool animated);
    void centerChanged();
    void refreshAppearance();
    void startFrames();
    void stepFrame();
    void repaintHighlight(const RingScene& before);
    void scheduleRenderAhead();
    void placeFilterField();

    Dependencies m_dependencies;
    RingInteraction m_interaction;
    RingPointer m_pointer;
    FilterField* m_filterField;
    PanelShape m_shape;
    RingStage m_stage;
    RingImageCache m_images;

    Task m_frames;
    double m_lastFrame = 0;
    Task m_renderAhead;
};

} // namespace Tavik
