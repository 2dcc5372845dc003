// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

#include <functional>
#include <optional>

namespace Tavik {

/// The desktop's place for status items, which may come and go at any time. Main thread only;
/// answers from memory.
class StatusTray
{
public:
    enum class Host {
        none,
        embedding, ///< Takes small windows; a notifier may still be about to come.
        notifier, ///< Shows items that are described to it.
    };

    virtual ~StatusTray() = default;

    [[nodiscard]] virtual Host host() const = 0;
    /// What the tray paints its symbols in; absent when it does not tell.
    [[nodiscard]] virtual std::optional<QColor> symbolColor() const = 0;

    /// Called when an answer has changed.
    std::function<void()> onChanged;
};

} // namespace Tavik
