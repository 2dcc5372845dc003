// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/IconDecoder.h>
#include <TavikLauncherPlatform/Linux/Files/IconTheme.h>

#include <QMutex>
#include <QString>

#include <optional>

namespace Tavik {

/// Finds and decodes icons of the freedesktop icon themes. Looks them up itself because the
/// toolkit's own icon loader works on the main thread only. Every operation may be called from any
/// thread.
class ThemeIconDecoder final : public IconDecoder
{
public:
    explicit ThemeIconDecoder(QString themeName, IconFolders folders = IconFolders::ofSession());

    [[nodiscard]] QImage decode(const AppIcon& icon, int side, double scale) const override;
    /// Reads the theme's index anew.
    void reload() override;

private:
    [[nodiscard]] IconTheme theme() const;

    const QString m_themeName;
    const IconFolders m_folders;
    mutable QMutex m_mutex; ///< Guards the theme.
    mutable std::optional<IconTheme> m_theme; ///< Loaded by the first decoding.
};

} // namespace Tavik
