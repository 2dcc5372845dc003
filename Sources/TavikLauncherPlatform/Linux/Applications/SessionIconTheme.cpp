// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/SessionIconTheme.h>

#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostSettingsBytes = 64 * 1024;

bool isInstalled(const QString& theme, const IconFolders& folders)
{
    return isIconPathComponent(theme)
        && std::ranges::any_of(folders.themes, [&theme](const QString& folder) {
               return QFileInfo::exists(folder + u'/' + theme + u"/index.theme"_s);
           });
}

QString gtkTheme(const QString& version)
{
    const QString path = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + u"/gtk-%1/settings.ini"_s.arg(version);
    const QFileInfo file(path);
    if (!file.isFile() || file.size() > mostSettingsBytes) {
        return {};
    }
    return QSettings(path, QSettings::IniFormat)
        .value(u"Settings/gtk-icon-theme-name"_s)
        .toString();
}

} // namespace

QString sessionIconTheme(const QString& toolkitTheme, const IconFolders& folders)
{
    const QString fallback = u"hicolor"_s;
    if (!toolkitTheme.isEmpty() && toolkitTheme != fallback) {
        return toolkitTheme;
    }
    for (const QString& theme : {gtkTheme(u"4.0"_s),
                                 gtkTheme(u"3.0"_s),
                                 u"Papirus"_s,
                                 u"breeze"_s,
                                 u"elementary"_s,
                                 u"Adwaita"_s}) {
        if (isInstalled(theme, folders)) {
            return theme;
        }
    }
    return fallback;
}

} // namespace Tavik
