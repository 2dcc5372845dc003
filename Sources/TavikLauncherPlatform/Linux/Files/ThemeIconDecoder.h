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

    /// Changes the theme for the decodings that start from now on, and reads its index anew, so the
    /// same name again takes in themes and folders installed since.
    void setThemeName(const QString& themeName);

    [[nodiscard]] QImage decode(const AppIcon& icon, int side, double scale) const override;

private:
    [[nodiscard]] IconTheme theme() const;

    const IconFolders m_folders;
    mutable QMutex m_mutex; ///< Guards what follows.
    QString m_themeName;
    mutable std::optional<IconTheme> m_theme; ///< Loaded by the first decoding.
};

} // namespace Tavik
