// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/DesktopEntry.h>

#include <QByteArray>
#include <QString>

namespace Tavik {

/// What is inside of an AppImage, which may be anybody's: it is read by a program of its own, that
/// is held to little memory, time and output and may come to grief there. What has been read is
/// kept in the user's cache folder until the image is another. Starts programs, so it runs off the
/// main thread.
class AppImageContent
{
public:
    /// What is kept goes into `cacheFolder`.
    explicit AppImageContent(QString cacheFolder = defaultFolder());
    [[nodiscard]] static QString defaultFolder();

    /// As an entry that starts the image: what the entry inside says, or where there is none, or
    /// nothing to read it with, as for the older type, the file's name. Nothing keeps it out of
    /// menus.
    [[nodiscard]] DesktopEntry entry(const QString& image) const;
    /// The path of a file with the icon that it brings; empty when there is none to be had.
    [[nodiscard]] QString iconFile(const QString& image) const;

private:
    enum class Part {
        entry,
        icon,
    };
    [[nodiscard]] QByteArray entryText(const QString& image) const;
    [[nodiscard]] QString kept(const QString& image, Part part) const;

    QString m_cacheFolder;
};

} // namespace Tavik
