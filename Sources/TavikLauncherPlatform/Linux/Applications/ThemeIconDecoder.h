// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/IconDecoder.h>
#include <TavikLauncherPlatform/Linux/Applications/IconTheme.h>

#include <QMutex>
#include <QString>

#include <functional>
#include <optional>

namespace Tavik {

/// Finds and decodes icons of the freedesktop icon themes. Looks them up itself because the
/// toolkit's own icon loader works on the main thread only. Every operation may be called from any
/// thread.
class ThemeIconDecoder final : public IconDecoder
{
public:
    /// `themeName` answers with the name of the theme to draw with: now, and at each reload on the
    /// thread that reloads.
    /// `iconOf` tells the icon of the application at a path, and any other text as it is; it is
    /// asked on the threads that decode.
    ThemeIconDecoder(std::function<QString()> themeName,
                     std::function<QString(const QString&)> iconOf,
                     IconFolders folders = IconFolders::ofSession());

    [[nodiscard]] QImage decode(const AppIcon& icon, int side, double scale) const override;
    /// Asks for the theme's name again and reads its index anew.
    void reload() override;

private:
    [[nodiscard]] IconTheme theme() const;

    const std::function<QString()> m_askThemeName;
    const std::function<QString(const QString&)> m_iconOf;
    const IconFolders m_folders;
    mutable QMutex m_mutex; ///< Guards what follows.
    QString m_themeName;
    mutable std::optional<IconTheme> m_theme; ///< Loaded by the first decoding.
};

} // namespace Tavik
