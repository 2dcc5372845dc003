// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Windows/ConfettiBurst.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace Tavik {

namespace {

constexpr std::array colors{QColor(0x0A, 0x84, 0xFF),
                            QColor(0xBF, 0x5A, 0xF2),
                            QColor(0xFF, 0x37, 0x5F),
                            QColor(0xFF, 0x9F, 0x0A),
                            QColor(0xFF, 0xD6, 0x0A),
                            QColor(0x30, 0xD1, 0x58),
                            QColor(0x40, 0xC8, 0xE0)};

/// A value that varies evenly about its mean, by half the range to either side.
struct Varied
{
    double mean;
    double range;

    [[nodiscard]] double draw(std::mt19937& random) const
    {
        // Not a standard distribution: those differ from library to library.
        const double unit = static_cast<double>(random()) / 4294967296.0;
        return mean + (unit - 0.5) * range;
    }
};

constexpr double emissionSeconds = 0.15;
constexpr double birthRate = 90; // Per second and colour.
constexpr Varied lifetime{3.8, 0.9};
constexpr Varied speed{380, 170};
constexpr Varied direction{std::numbers::pi / 2, 0.55 * std::numbers::pi};
constexpr Varied spinRate{3, 7};
constexpr Varied startScale{0.7, 0.45};
constexpr double acceleration = -340;
constexpr double opacityRate = -0.28;
constexpr double scaleRate = -0.1;

} // namespace

ConfettiBurst::ConfettiBurst(QPointF left, QPointF right, quint32 seed)
{
    std::mt19937 random(seed);
    for (const QColor& color : colors) {
        for (int i = 0; i / birthRate < emissionSeconds; ++i) {
            const double along = Varied{0.5, 1}.draw(random);
            const double angle = direction.draw(random);
            const double launch = speed.draw(random);
            m_particles.push_back({.birth = i / birthRate,
                                   .lifetime = lifetime.draw(random),
                                   .start = left + along * (right - left),
                                   .velocity = launch * QPointF(std::cos(angle), std::sin(angle)),
                                   .spin = spinRate.draw(random),
                                   .scale = startScale.draw(random),
                                   .color = color});
        }
    }
}

double ConfettiBurst::Particle::end() const
{
    // Nothing is seen of what has faded or shrunk away.
    return birth + std::min({lifetime, 1 / -opacityRate, scale / -scaleRate});
}

ConfettiBurst::Piece ConfettiBurst::Particle::at(double age) const
{
    return {.center = start + age * velocity + QPointF(0, acceleration * age * age / 2),
            .angle = spin * age,
            .scale = scale + scaleRate * age,
            .opacity = 1 + opacityRate * age,
            .color = color};
}

std::vector<ConfettiBurst::Piece> ConfettiBurst::pieces(double seconds) const
{
    std::vector<Piece> flying;
    flying.reserve(m_particles.size());
    for (const Particle& particle : m_particles) {
        if (seconds >= particle.birth && seconds < particle.end()) {
            flying.push_back(particle.at(seconds - particle.birth));
        }
    }
    return flying;
}

QRectF ConfettiBurst::bounds() const
{
    QRectF all;
    for (const Particle& particle : m_particles) {
        const double age = particle.end() - particle.birth;
        const double apexAge = std::clamp(particle.velocity.y() / -acceleration, 0.0, age);
        const double reach = std::hypot(pieceSize.width(), pieceSize.height()) / 2 * particle.scale;
        for (const double time : {0.0, apexAge, age}) {
            const QPointF center = particle.at(time).center;
            all |= QRectF(center.x() - reach, center.y() - reach, 2 * reach, 2 * reach);
        }
    }
    return all;
}

double ConfettiBurst::duration() const
{
    double last = 0;
    for (const Particle& particle : m_particles) {
        last = std::max(last, particle.end());
    }
    return last;
}

std::span<const QColor> ConfettiBurst::palette()
{
    return colors;
}

QRectF ConfettiBurst::placement(const QRectF& window, const QRectF& visibleFrame)
{
    QRectF about = window;
    if (about.isEmpty()) {
        about.setSize(visibleFrame.size() / 2);
        about.moveCenter(visibleFrame.center());
    }
    constexpr double leastHeight = 8;
    const double lowest = visibleFrame.y();
    const double highest = lowest + visibleFrame.height();
    const double width = about.width() * 0.7;
    const double top = std::clamp(about.center().y() + about.height() * 0.3,
                                  std::min(lowest + leastHeight, highest),
                                  highest);
    return {about.center().x() - width / 2, lowest, width, top - lowest};
}

} // namespace Tavik
