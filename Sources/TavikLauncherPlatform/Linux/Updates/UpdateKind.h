// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

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

/// What kind of file it is ("appimage", "deb", "rpm", "flatpak" or "pkg.tar.zst"), by its declared
/// type, and by the ending of its address where that says nothing; empty for any other.
[[nodiscard]] QString updateKindName(const AppcastEnclosure& enclosure);

/// The kinds of package, named as above, whose type an installer here takes.
[[nodiscard]] QStringList
updateKindsFor(const std::function<bool(const QString& mimeType)>& hasInstaller);

/// An image is replaced by images only, and whoever does not run from one has no use for them.
[[nodiscard]] UpdateKind updateKind(const AppcastEnclosure& enclosure, bool runsFromImage);

} // namespace Tavik
