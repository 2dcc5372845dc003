// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Ring/RingMotion.h>
#include <TavikLauncher/Views/Ring/FieldFade.h>
#include <TavikLauncher/Views/Ring/RingIcons.h>
#include <TavikLauncher/Views/Ring/RingScene.h>

#include <QRect>

#include <functional>

class QWidget;

namespace Tavik {

class AppCatalog;
class FilterField;
class LauncherPresentationState;
class LauncherSettings;
class PanelShape;
class RingInteraction;
class WindowServer;

/// Makes the scene of the moment out of the ring's state, the settings, the icons and what moves.
/// However often a frame asks for its scene, it is made once. Paints nothing; owned by the view.
class RingStage
{
public:
    struct Sources
    {
        const RingInteraction& interaction;
        const LauncherSettings& settings;
        const LauncherPresentationState& presentation;
        const AppCatalog& catalog;
        const WindowServer& windowServer;
        const PanelShape& shape;
        const FilterField& field;
        const QWidget& view; ///< For how dense its screen is, and whether it is shown.
        IconDecoder& iconDecoder;
        WorkQueue& workQueue;
        MainQueue& mainQueue;
    };
    /// `fadeIsDue` is called when the field is to fade, which `advance` does.
    RingStage(const Sources& sources, std::function<void()> fadeIsDue);

    [[nodiscard]] const RingScene& scene();
    /// Something that the scene is made from has changed.
    void outdate() { m_isCurrent = false; }
    [[nodiscard]] RingGeometry geometry() const;
    /// A point of the view in the ring's own plane.
    [[nodiscard]] QPointF inRingPlane(QPointF position) const;
    /// The slot's icon at rest, in the view's plane.
    [[nodiscard]] QRect slotRect(int slot) const;
    /// Tells when more icons are there, and is told when those that are may be old.
    [[nodiscard]] AppIconCache& iconCache() { return m_icons.cache(); }

    /// Parses the colours, which no frame is to do again.
    void refreshStyle();
    /// Has the icons decoded that will be drawn: the ring's, or the next summon's.
    void prefetchIcons();
    /// Takes over where the highlight belongs; it goes there by itself where it is `animated`.
    void followHighlight(bool animated);
    /// Shows the empty field, and lets it fade after a while unless the user wants it to stay.
    void showField();
    void keepField() { m_fieldFade.cancel(); }
    [[nodiscard]] bool isFieldFading() const { return m_fieldFade.isFading(); }
    /// Moves all that moves on by `seconds`; returns whether there will be more to move.
    bool advance(double seconds);

private:
    [[nodiscard]] double diameter() const;
    [[nodiscard]] RingIcons::Measures iconMeasures() const;
    [[nodiscard]] RingCenter centerTexts() const;
    [[nodiscard]] QList<RingIcon> icons(const RingGeometry& geometry);
    [[nodiscard]] RingScene sceneNow();

    Sources m_sources;
    RingIcons m_icons;
    RingMotion m_motion;
    FieldFade m_fieldFade;
    double m_spinnerTurns = 0;
    RingStyle m_style;
    RingScene m_scene; ///< As last made; see `m_isCurrent`.
    bool m_isCurrent = false;
};

} // namespace Tavik
