// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <optional>

namespace Tavik {

/// What the panel controller's opening animation asks of the ring's drawing.
class LauncherPresentationState final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Scale applied to the ring about its centre; 1 at rest.
    [[nodiscard]] double scale() const { return m_scale; }
    /// Opacity of the whole ring, 0 to 1.
    [[nodiscard]] double opacity() const { return m_opacity; }
    /// False while the ring is in flight, so that the pointer selects nothing on the way.
    [[nodiscard]] bool acceptsHover() const { return m_acceptsHover; }
    /// A smaller ring diameter in points, for the preview beside the settings window.
    [[nodiscard]] std::optional<double> diameterOverride() const { return m_diameterOverride; }
    /// The diameter to draw a ring at whose user wants `diameter` points.
    [[nodiscard]] double effectiveDiameter(double diameter) const
    {
        return m_diameterOverride.value_or(diameter);
    }

    void setAppearance(double scale, double opacity);
    void setAcceptsHover(bool accepts) { m_acceptsHover = accepts; }
    void setDiameterOverride(std::optional<double> diameter);
    /// Back to a ring at rest: full size, opaque, hoverable, of the user's diameter.
    void reset();

Q_SIGNALS:
    void appearanceChanged();
    void diameterOverrideChanged();

private:
    double m_scale = 1.0;
    double m_opacity = 1.0;
    bool m_acceptsHover = true;
    std::optional<double> m_diameterOverride;
};

} // namespace Tavik
