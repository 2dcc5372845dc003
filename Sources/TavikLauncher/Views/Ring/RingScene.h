// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Ring/RingGeometry.h>
#include <TavikLauncher/Views/Ring/RingStyle.h>

#include <QImage>
#include <QList>
#include <QString>

#include <functional>

namespace Tavik {

/// One slot as it is drawn at this moment.
struct RingIcon
{
    QPointF center;
    QImage icon; ///< At rest; null while it is still being decoded.
    QImage emphasizedIcon; ///< The same, decoded for the size of a selected icon.
    double emphasis = 0; ///< 0 at rest, 1 selected; may overshoot.
    bool isRunning = false;
    bool isStarting = false;
    bool dimsWhenNotRunning = true;

    /// Images are told apart by identity, not pixel by pixel.
    bool operator==(const RingIcon& other) const;
};

/// The texts in the ring's centre; an empty text is not shown.
struct RingCenter
{
    QString indicator; ///< "Pinned" or "Search mode".
    QString query;
    QString hint; ///< In the field while the filter is empty.
    double fieldOpacity = 1; ///< Fades the empty field.
    QString selectedName;
    QString message; ///< "No matches".
    QString launchHint;
    bool isInvitation = false; ///< The hint says how to fill an empty ring, and can be clicked.
    int spinnerStep = -1; ///< 0 to 11 while the catalog is being indexed, else -1.

    bool operator==(const RingCenter&) const = default;
};

/// Everything there is to draw, as a value: what is drawn ahead for a summon stays good for as long
/// as the scene of the summon is equal.
struct RingScene
{
    RingGeometry geometry;
    RingStyle style;
    double diameter = 0; ///< Points; the ring's square inside the panel's.
    double devicePixelRatio = 1;
    double wedgeDegrees = -90;
    bool showsWedge = false;
    int selectedSlot = -1; ///< Drawn above its neighbours.
    bool isOpaque = false; ///< No compositor blends the panel.
    QImage behind; ///< Then: what lies behind the panel; null while that is not known.
    QList<RingIcon> icons;
    RingCenter center;

    /// The panel's edge is cut without smoothing.
    [[nodiscard]] bool hasHardEdge() const { return isOpaque && behind.isNull(); }

    bool operator==(const RingScene&) const = default;
};

/// Whether a rectangle of the ring's own plane is to be painted.
using IsDirty = std::function<bool(const QRectF&)>;

} // namespace Tavik
