// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <functional>

namespace Tavik {

/// Lets the empty filter field fade out a while after it was shown.
class FieldFade
{
public:
    /// `onDue` is called when it is time to fade; from then on `advance` moves the opacity.
    FieldFade(MainQueue& mainQueue, std::function<void()> onDue);

    /// Shows the field at once, and lets it fade later if it `fades` at all.
    void show(bool fades);
    void cancel() { m_wait.cancel(); }
    /// Moves on; at once to the end where nothing can be `blended`.
    void advance(double seconds, bool isBlended);

    [[nodiscard]] bool isFading() const { return m_isDue && m_opacity > 0; }
    /// 0 to 1.
    [[nodiscard]] double opacity() const { return m_opacity; }

private:
    MainQueue& m_mainQueue;
    std::function<void()> m_onDue;
    Task m_wait;
    bool m_isDue = false;
    double m_opacity = 1;
};

} // namespace Tavik
