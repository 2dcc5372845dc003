// SPDX-License-Identifier: MIT
#include <TavikLauncher/Ring/PresentationAnimation.h>

#include <algorithm>
#include <array>

namespace Tavik::PresentationAnimation {

namespace {

struct KeyFrame
{
    double progress;
    double scale;
};

constexpr double largestStartScale = 0.08;
constexpr double dotDiameter = 5.0;

} // namespace

double startScale(double diameter)
{
    return diameter > 1 ? std::min(dotDiameter / diameter, largestStartScale) : largestStartScale;
}

double bounceScale(double progress, double startScale)
{
    if (progress < 0 || progress > 1) {
        return 1.0;
    }
    const std::array<KeyFrame, 4> frames{{{0.0, startScale}, {0.48, 1.1}, {0.68, 0.9}, {1.0, 1.0}}};
    for (std::size_t i = 1; i < frames.size(); ++i) {
        const KeyFrame& from = frames[i - 1];
        const KeyFrame& to = frames[i];
        if (progress <= to.progress) {
            const double u
                = std::clamp((progress - from.progress) / (to.progress - from.progress), 0.0, 1.0);
            return from.scale + (to.scale - from.scale) * u * u * (3 - 2 * u);
        }
    }
    return 1.0;
}

double opacity(double progress)
{
    return std::min(progress * 1.4 + 0.2, 1.0);
}

} // namespace Tavik::PresentationAnimation
