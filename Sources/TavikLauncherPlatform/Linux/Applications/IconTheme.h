// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/IconThemeIndex.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace Tavik {

/// `source` when it is an absolute path or an icon's name, the name without a file ending; empty
/// when it is neither.
[[nodiscard]] QString usableIconSource(const QString& source);

/// The places where icons are installed.
struct IconFolders
{
    QStringList themes; ///< Hold a folder for each theme, the most important first.
    QStringList pixmaps; ///< Hold icons of no theme.

    /// This session's, from the environment.
    [[nodiscard]] static IconFolders ofSession();
};

/// An icon theme, the themes it inherits and the fallback theme, as the freedesktop icon theme
/// standard has them. A value: what is installed later in folders of its own is not seen.
class IconTheme
{
public:
    /// What is drawn: `side` device pixels on a screen with `scale` device pixels per point.
    struct Size
    {
        int side = 0;
        double scale = 1;
    };

    IconTheme() = default;
    [[nodiscard]] static IconTheme load(const QString& name, const IconFolders& folders);

    /// Offers the files for the icon `name`, the best one first, until `accept` returns true.
    /// Returns whether it did.
    bool find(const QString& name,
              Size size,
              const std::function<bool(const QString& path)>& accept) const;

private:
    using Directories = QList<IconThemeIndex::Directory>; ///< With absolute paths.
    struct Candidate
    {
        double cost = 0;
        qsizetype directory = 0;
        QLatin1StringView ending;
    };

    static Directories
    existing(const Directories& described, const QString& theme, const QStringList& themeFolders);
    static QList<Candidate> candidates(const Directories& directories, Size size);
    static double cost(const IconThemeIndex::Directory& directory, bool isVector, Size size);

    QList<Directories> m_themes; ///< The chosen theme first.
    QStringList m_plainFolders;
};

} // namespace Tavik
