// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>

#include <span>
#include <vector>

namespace Tavik {

/// A short burst of confetti from a line: everything that will fly is settled when it is made, so
/// what is seen at a time depends on nothing but the time and the seed. Points, y growing upwards.
class ConfettiBurst
{
public:
    static constexpr QSizeF pieceSize{12, 8};
    static constexpr double pieceCornerRadius = 2;

    struct Piece
    {
        QPointF center;
        double angle = 0; ///< Radians, counter-clockwise.
        double scale = 1;
        double opacity = 1; ///< 0 to 1.
        QColor color;
    };

    /// Pieces start anywhere on the line from `left` to `right`.
    ConfettiBurst(QPointF left, QPointF right, quint32 seed);

    /// What flies `seconds` after the beginning.
    [[nodiscard]] std::vector<Piece> pieces(double seconds) const;
    /// Holds every piece at every time.
    [[nodiscard]] QRectF bounds() const;
    /// When the last piece is gone, in seconds after the beginning.
    [[nodiscard]] double duration() const;

    [[nodiscard]] static std::span<const QColor> palette();
    /// The rectangle whose upper edge the burst comes from, for a celebration over `window` on a
    /// screen with this visible frame. Without a window (an empty rectangle) one in the middle of
    /// the screen is taken.
    [[nodiscard]] static QRectF placement(const QRectF& window, const QRectF& visibleFrame);

private:
    struct Particle
    {
        double birth = 0; ///< Seconds after the beginning.
        double lifetime = 0;
        QPointF start;
        QPointF velocity;
        double spin = 0; ///< Radians per second.
        double scale = 0; ///< At birth.
        QColor color;

        [[nodiscard]] double end() const;
        [[nodiscard]] Piece at(double age) const;
    };

    std::vector<Particle> m_particles; ///< Older ones first, within a colour.
};

} // namespace Tavik
