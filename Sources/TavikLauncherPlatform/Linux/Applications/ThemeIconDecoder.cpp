// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/GenericIcon.h>
#include <TavikLauncherPlatform/Linux/Applications/IconImage.h>
#include <TavikLauncherPlatform/Linux/Applications/ThemeIconDecoder.h>

#include <QMutexLocker>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

constexpr int maxSide = 2'048;
constexpr double maxScale = 8;

} // namespace

ThemeIconDecoder::ThemeIconDecoder(std::function<QString()> themeName,
                                   std::function<QString(const QString&)> iconOf,
                                   IconFolders folders)
    : m_askThemeName(std::move(themeName))
    , m_iconOf(std::move(iconOf))
    , m_folders(std::move(folders))
    , m_themeName(m_askThemeName())
{ }

QImage ThemeIconDecoder::decode(const AppIcon& icon, int side, double scale) const
{
    const int pixels = std::clamp(side, 1, maxSide);
    QImage image;
    const auto accept = [&image, pixels](const QString& path) {
        image = IconImage::read(path, pixels);
        return !image.isNull();
    };
    const QString source = usableIconSource(m_iconOf(icon.source));
    if (source.startsWith(u'/') && accept(source)) {
        return image;
    }
    const IconTheme::Size size{
        .side = pixels, .scale = std::isfinite(scale) ? std::clamp(scale, 1.0, maxScale) : 1.0};
    const IconTheme icons = theme();
    if (icons.find(source, size, accept)
        || icons.find(u"application-x-executable"_s, size, accept)) {
        return image;
    }
    return GenericIcon::draw(pixels);
}

void ThemeIconDecoder::reload()
{
    QString themeName = m_askThemeName();
    const QMutexLocker lock(&m_mutex);
    m_themeName = std::move(themeName);
    m_theme.reset();
}

IconTheme ThemeIconDecoder::theme() const
{
    const QMutexLocker lock(&m_mutex);
    if (!m_theme) {
        m_theme = IconTheme::load(m_themeName, m_folders);
    }
    return *m_theme;
}

} // namespace Tavik
