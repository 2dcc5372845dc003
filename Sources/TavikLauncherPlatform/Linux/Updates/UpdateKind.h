// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tavik {

struct AppcastEnclosure;

/// How a file becomes the new version.
struct UpdateKind
{
    enum class Way {
        replacesImage, ///< It takes the place of the image that runs.
        goesToInstaller, ///< The desktop's installer takes it.
        isOnPage, ///< Only a page about it can be opened.
    };
    Way way = Way::isOnPage;
    /// For the installer: the ending that tells the file's type to every desktop, and that type.
    QString suffix;
    QString mimeType;

    bool operator==(const UpdateKind&) const = default;
};

/// Judged by the declared type, and by the ending of the address where that says nothing. An image
/// is replaced by images only, and whoever does not run from one has no use for them.
[[nodiscard]] UpdateKind updateKind(const AppcastEnclosure& enclosure, bool runsFromImage);

} // namespace Tavik
