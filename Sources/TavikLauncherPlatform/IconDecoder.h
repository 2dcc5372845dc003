// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/AppIcon.h>

#include <QImage>

namespace Tavik {

/// Turns an application's icon into pixels. `decode` may run on any thread.
class IconDecoder
{
public:
    virtual ~IconDecoder() = default;

    /// The icon fitted into a square of `side` device pixels (premultiplied, transparent where the
    /// icon is not square), for an icon drawn at `side / scale` points; the generic application
    /// icon when the source cannot be read. Never null.
    [[nodiscard]] virtual QImage decode(const AppIcon& icon, int side, double scale) const = 0;

    /// Takes in what has been installed or chosen since, for the decodings that start from now on.
    /// Main thread only.
    virtual void reload() { }
};

} // namespace Tavik
