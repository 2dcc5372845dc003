// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tavik {

/// Names an application's icon without holding its pixels: a theme icon name or the absolute
/// path of an image file or of the application itself, whose icon is then looked for when it is
/// wanted. Empty means the generic application icon. Decoding happens elsewhere, off the main
/// thread and at the size that is drawn, so that a catalog of thousands stays small.
struct AppIcon
{
    QString source;

    bool operator==(const AppIcon&) const = default;
};

} // namespace Tavik
