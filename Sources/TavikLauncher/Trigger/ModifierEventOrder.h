// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

namespace Tavik {

/// The sources that tell of key events, each of its own accord.
enum class KeySource {
    localMonitor,
    eventTap,
    globalMonitor
};

/// Makes one sequence out of what several sources tell of the same keyboard. A source that lags
/// behind repeats what is over already, and must not press the chord a second time. A value.
class ModifierEventOrder
{
public:
    /// Whether an event tells news; counts it as told if so. Events of one source come in order.
    bool accepts(KeySource source, double time)
    {
        const bool isNews
            = !m_last || time > m_last->time || (time == m_last->time && source == m_last->source);
        if (isNews) {
            m_last = Told{source, time};
        }
        return isNews;
    }

private:
    struct Told
    {
        KeySource source = KeySource::localMonitor;
        double time = 0;
    };
    std::optional<Told> m_last;
};

} // namespace Tavik
