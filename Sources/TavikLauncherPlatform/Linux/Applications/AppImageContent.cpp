// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/AppImageContent.h>
#include <TavikLauncherPlatform/Linux/Applications/CommandLine.h>
#include <TavikLauncherPlatform/Linux/Disk/AppImageFile.h>
#include <TavikLauncherPlatform/Linux/Disk/BoundedFile.h>
#include <TavikLauncherPlatform/Linux/Disk/ReplaceFile.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

#include <sys/resource.h>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

constexpr int patienceMilliseconds = 5'000;
constexpr rlim_t mostProcessorSeconds = 3;
constexpr rlim_t mostMemory = 512 * 1024 * 1024;
constexpr qint64 mostListing = 256 * 1024;
constexpr qint64 mostIcon = 4 * 1024 * 1024;
constexpr int mostLinks = 8;
constexpr auto listedFolder = "image"_L1; ///< As what the tool lists the image's root.

void limit(int resource, rlim_t most)
{
    const rlimit both{.rlim_cur = most, .rlim_max = most};
    ::setrlimit(static_cast<__rlimit_resource_t>(resource), &both);
}

/// The tool that reads images; empty where it is not installed.
QString reader()
{
    return QStandardPaths::findExecutable(u"unsquashfs"_s);
}

/// What the tool writes; empty when that is more than `most` bytes, or when it fails or dawdles.
QByteArray output(const QStringList& arguments, qint64 most)
{
    QProcess process;
    process.setChildProcessModifier([] {
        limit(RLIMIT_CPU, mostProcessorSeconds);
        limit(RLIMIT_AS, mostMemory);
        limit(RLIMIT_CORE, 0);
        limit(RLIMIT_FSIZE, 0);
    });
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.setStandardErrorFile(QProcess::nullDevice());
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(reader(), arguments, QIODevice::ReadOnly);
    const QDeadlineTimer deadline(patienceMilliseconds);
    QByteArray bytes;
    while (bytes.size() <= most
           && process.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
        bytes += process.read(most + 1 - bytes.size());
    }
    const bool isWhole = bytes.size() <= most
        && (process.state() == QProcess::NotRunning
            || process.waitForFinished(static_cast<int>(deadline.remainingTime())))
        && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
    }
    return isWhole ? bytes : QByteArray();
}

/// One image, read by the tool.
class Image
{
public:
    Image(QString path, qint64 offset)
        : m_path(std::move(path))
        , m_options{u"-no-progress"_s,
                    u"-processors"_s,
                    u"1"_s,
                    u"-data-queue"_s,
                    u"8"_s,
                    u"-frag-queue"_s,
                    u"8"_s,
                    u"-offset"_s,
                    QString::number(offset)}
    {
        const QStringList listing{
            u"-dest"_s, listedFolder, u"-max-depth"_s, u"1"_s, u"-lln"_s, m_path};
        const QString lines = QString::fromUtf8(output(m_options + listing, mostListing));
        for (const QString& line : lines.split(u'\n')) {
            const qsizetype at = line.indexOf(u' ' + listedFolder + u'/');
            if (at >= 0) {
                const QString item = line.sliced(at + 2 + listedFolder.size());
                m_targets.insert(item.section(" -> "_L1, 0, 0), item.section(" -> "_L1, 1));
            }
        }
    }

    /// The names of what lies at the top.
    [[nodiscard]] QStringList names() const { return m_targets.keys(); }

    /// The content of what lies at the top under `name` or is linked to from there; empty when
    /// there is none, or more than `most` bytes of it.
    [[nodiscard]] QByteArray content(const QString& name, qint64 most) const
    {
        QString file = name;
        for (int link = 0; link < mostLinks && !m_targets.value(file).isEmpty(); ++link) {
            file = QDir::cleanPath(m_targets.value(file));
        }
        const bool isInside = m_targets.contains(file.section(u'/', 0, 0));
        return isInside
            ? output(m_options + QStringList{u"-no-wildcards"_s, u"-cat"_s, m_path, file}, most)
            : QByteArray();
    }

private:
    QString m_path;
    QStringList m_options;
    QHash<QString, QString> m_targets; ///< Of links at the top, by name; empty for all else there.
};

QByteArray entryOf(const Image& image)
{
    for (const QString& name : image.names()) {
        if (name.endsWith(".desktop"_L1)) {
            return image.content(name, DesktopEntryFile::maxSize);
        }
    }
    return {};
}

QByteArray iconOf(const Image& image, const QByteArray& entry)
{
    const QString name = DesktopEntryFile::parse(entry, {}, {}).icon.toString();
    for (const QString& candidate : {name + ".svg"_L1, name + ".png"_L1, u".DirIcon"_s}) {
        if (const QByteArray bytes = image.content(candidate, mostIcon); !bytes.isEmpty()) {
            return bytes;
        }
    }
    return {};
}

QString quoted(const QString& word)
{
    QString escaped = word;
    return u'\'' + escaped.replace(u'\'', "'\\''"_L1) + u'\'';
}

/// The command of the entry inside, with the image in the place of the program.
QString commandFor(const QString& image, const QString& command)
{
    // A percent sign begins a code.
    QString path = image;
    QStringList words{quoted(path.replace(u'%', "%%"_L1))};
    const QStringList inside = CommandLine::words(command);
    const auto isBeforeProgram = [](const QString& word) {
        return word == "env"_L1 || word.contains(u'=');
    };
    auto word = std::ranges::find_if_not(inside, isBeforeProgram);
    while (word != inside.end() && ++word != inside.end()) {
        words.append(quoted(*word));
    }
    return words.join(u' ');
}

} // namespace

AppImageContent::AppImageContent(QString cacheFolder)
    : m_cacheFolder(std::move(cacheFolder))
{ }

QString AppImageContent::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
        + "/TavikLauncher/AppImages"_L1;
}

DesktopEntry AppImageContent::entry(const QString& image) const
{
    const QFileInfo file(image);
    if (!AppImageFile::content(image)) {
        return {.id = file.fileName(), .path = image, .isImage = true};
    }
    DesktopEntry entry = DesktopEntryFile::parse(entryText(image), image, file.fileName());
    if (entry.name.isEmpty()) {
        entry.name = AppImageFile::isNamedSo(image) ? file.completeBaseName() : file.fileName();
    }
    entry.command = commandFor(image, entry.command.toString());
    entry.program = image;
    entry.takesArguments = false;
    // These are about a program that has been installed.
    entry.requiredProgram.clear();
    entry.folder.clear();
    entry.isActivatable = false;
    entry.isImage = true;
    entry.isApplication = true;
    entry.isDeleted = false;
    entry.isHidden = false;
    return entry;
}

QByteArray AppImageContent::entryText(const QString& image) const
{
    return BoundedFile::read(kept(image, Part::entry), DesktopEntryFile::maxSize)
        .value_or(QByteArray());
}

QString AppImageContent::iconFile(const QString& image) const
{
    const QString file = kept(image, Part::icon);
    return QFileInfo(file).size() > 0 ? file : QString();
}

/// The file that holds that part of the image, empty when the image has none. It is as old as the
/// image that it is from.
QString AppImageContent::kept(const QString& image, Part part) const
{
    const QByteArray hash
        = QCryptographicHash::hash(image.toUtf8(), QCryptographicHash::Sha1).toHex();
    const QString file = m_cacheFolder + u'/' + QString::fromLatin1(hash)
        + (part == Part::entry ? ".desktop"_L1 : ".icon"_L1);
    const QDateTime made = QFileInfo(image).lastModified();
    const std::optional<qint64> offset = AppImageFile::squashOffset(image);
    if (!offset || reader().isEmpty()) {
        return {};
    }
    if (QFileInfo(file).lastModified() != made) {
        const Image content(image, *offset);
        const QByteArray bytes
            = part == Part::entry ? entryOf(content) : iconOf(content, entryText(image));
        constexpr auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
        QFile written(file);
        if (replaceFile(file, bytes, ownerOnly) || !written.open(QIODevice::ReadWrite)
            || !written.setFileTime(made, QFileDevice::FileModificationTime)) {
            return {};
        }
    }
    return file;
}

} // namespace Tavik
