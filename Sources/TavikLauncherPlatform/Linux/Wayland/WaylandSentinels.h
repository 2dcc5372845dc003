// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Wayland/WaylandLayer.h>

#include <QPointF>
#include <QRegion>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Tavik {

/// An invisible surface on each output, above all windows. A compositor tells a client where the
/// pointer is only on the client's own surfaces: these find it when the ring is summoned, and
/// afterwards take the clicks beside the ring.
class WaylandSentinels
{
public:
    struct Place
    {
        QString output; ///< As the toolkit calls its screen.
        QPointF point; ///< Points of the output, y growing downwards.
    };

    /// `connection` must be complete and outlive this.
    WaylandSentinels(WaylandConnection& connection, std::function<void()> clicked);
    ~WaylandSentinels();
    Q_DISABLE_COPY_MOVE(WaylandSentinels)

    /// Shows the surfaces and waits until the pointer is seen, at most for 70 ms; absent then.
    [[nodiscard]] std::optional<Place> locate();
    /// Leaves this part of an output to what lies below; points of the output.
    void spare(const QString& output, const QRegion& region);
    void show();
    [[nodiscard]] bool areShown() const { return !m_sentinels.empty(); }
    void hide();

private:
    struct Sentinel;

    void entered(wl_surface* surface, QPointF point);

    WaylandConnection& m_connection;
    WaylandObject<wl_buffer> m_clear; ///< One transparent pixel.
    std::vector<std::unique_ptr<Sentinel>> m_sentinels;
    std::optional<Place> m_place;
};

} // namespace Tavik
