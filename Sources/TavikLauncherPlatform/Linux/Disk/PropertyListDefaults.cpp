// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListDefaults.h>
#include <TavikLauncherPlatform/Linux/Disk/ReplaceFile.h>
#include <TavikLauncherPlatform/Linux/Disk/StorageLog.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> writeFile(const QString& path, const QByteArray& content)
{
    return replaceFile(path, content, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

/// The file's content, or what the system says against reading it.
std::optional<QByteArray> contentOf(const QString& path, QString& error)
{
    QFile file(path);
    QByteArray content;
    if (file.open(QIODevice::ReadOnly)) {
        // One byte too many is refused later, and an empty file may be one that cannot be read.
        content = file.read(std::clamp<qint64>(file.size(), 1, PropertyListBounds::mostBytes + 1));
    }
    error = file.errorString();
    return file.error() == QFileDevice::NoError ? std::optional(content) : std::nullopt;
}

} // namespace

PropertyListDefaults::PropertyListDefaults(QString path, MainQueue& mainQueue, WorkQueue& workQueue)
    : m_path(std::move(path))
    , m_mainQueue(mainQueue)
    , m_workQueue(workQueue)
{
    load();
}

PropertyListDefaults::~PropertyListDefaults()
{
    // Whether a write under way has succeeded is not known here any more.
    m_hasChanged = m_hasChanged || m_isWriting;
    flush();
}

QString PropertyListDefaults::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + u"/TavikLauncher/Defaults.plist"_s;
}

void PropertyListDefaults::load()
{
    const QFileInfo file(m_path);
    if (!file.exists()) {
        return;
    }
    // Opening a pipe would wait for its other end.
    if (!file.isFile()) {
        qCWarning(storageLog).noquote()
            << u"TavikLauncher: %1 is not a regular file, settings start on defaults"_s.arg(m_path);
        return;
    }
    QString error;
    const auto content = contentOf(m_path, error);
    if (!content) {
        // There may be nothing wrong with it.
        m_isClosed = true;
        qCWarning(storageLog).noquote()
            << u"TavikLauncher: %1 could not be opened, settings start on defaults: %2"_s.arg(
                   m_path, error);
        return;
    }
    if (auto values = PropertyList::fromBytes(*content)) {
        m_values = *std::move(values);
        return;
    }
    const auto aside = setAside();
    m_isInTheWay = !aside;
    qCWarning(storageLog).noquote()
        << u"TavikLauncher: settings could not be read and start on defaults: %1 "_s.arg(m_path)
            + (aside ? u"is now %1"_s.arg(*aside) : u"could not be set aside"_s);
}

/// Moves the file, not a link to it, out of the way. Its new path; absent when it could not be
/// moved.
std::optional<QString> PropertyListDefaults::setAside() const
{
    const QString file = fileBehindLinks(m_path);
    const QString aside = file + u".damaged-"_s
        + QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd'T'HHmmss'Z'"_s);
    constexpr int mostInOneSecond = 20;
    for (int attempt = 1; attempt <= mostInOneSecond; ++attempt) {
        const QString name = attempt == 1 ? aside : u"%1-%2"_s.arg(aside).arg(attempt);
        if (!QFileInfo::exists(name)) {
            return QFile::rename(file, name) ? std::optional(name) : std::nullopt;
        }
    }
    return std::nullopt;
}

QVariant PropertyListDefaults::object(const QString& key) const
{
    return m_values.value(key);
}

void PropertyListDefaults::setObject(const QString& key, const QVariant& value)
{
    m_values.setValue(key, value);
    m_hasChanged = true;
    if (!m_isPosted) {
        m_isPosted = true;
        m_mainQueue.post([this, alive = QPointer<QObject>(&m_alive)] {
            if (alive) {
                m_isPosted = false;
                writeInBackground();
            }
        });
    }
}

void PropertyListDefaults::setObjectSoon(const QString& key, const QVariant& value)
{
    constexpr double patience = 1.0;
    constexpr double longestPatience = 10.0;
    m_values.setValue(key, value);
    m_hasChanged = true;
    const double now = m_mainQueue.systemUptime();
    if (!m_soon.isActive()) {
        m_waitingSince = now;
    } else if (now - m_waitingSince > longestPatience - patience) {
        return;
    }
    m_soon = m_mainQueue.after(patience, [this] { writeInBackground(); });
}

void PropertyListDefaults::flush()
{
    if (!m_hasChanged) {
        return;
    }
    QString refusal;
    const auto bytes = content(refusal);
    finishWrite(bytes ? writeFile(m_path, *bytes) : std::optional(refusal));
}

/// Syncing a file takes milliseconds, and a summon counts itself: the disk must not stand between
/// the trigger and the first frame.
void PropertyListDefaults::writeInBackground()
{
    if (!m_hasChanged || m_isWriting) {
        return; // What changes while a write is under way is written after it.
    }
    QString refusal;
    const auto bytes = content(refusal);
    if (!bytes) {
        finishWrite(refusal);
        return;
    }
    m_hasChanged = false;
    m_isWriting = true;
    m_workQueue.run(
        WorkPriority::utility,
        [path = m_path, bytes = *bytes] { return writeFile(path, bytes); },
        [this, alive = QPointer<QObject>(&m_alive)](const std::optional<QString>& error) {
            if (alive) {
                m_isWriting = false;
                const bool hasChangedMeanwhile = m_hasChanged;
                finishWrite(error);
                m_hasChanged = m_hasChanged || hasChangedMeanwhile;
                if (hasChangedMeanwhile) {
                    writeInBackground();
                }
            }
        });
}

void PropertyListDefaults::finishWrite(const std::optional<QString>& error)
{
    if (error && !m_isFailing) {
        qCWarning(storageLog).noquote() << "TavikLauncher: failed to save settings:" << *error;
    }
    m_isFailing = error.has_value();
    m_hasChanged = error.has_value();
}

std::optional<QByteArray> PropertyListDefaults::content(QString& error)
{
    m_isClosed = m_isClosed && QFileInfo::exists(m_path);
    if (m_isClosed) {
        error = u"%1 could not be opened at the start and is left as it is"_s.arg(m_path);
        return std::nullopt;
    }
    if (m_isInTheWay) {
        m_isInTheWay = QFileInfo::exists(m_path) && !setAside();
    }
    if (m_isInTheWay) {
        error = u"%1 is damaged and could not be set aside"_s.arg(m_path);
        return std::nullopt;
    }
    const QByteArray xml = m_values.toXml();
    if (!PropertyListBounds::areKept(xml)) {
        // The next start would refuse it, so the file that can still be read stays.
        error = u"%1 bytes are too many to be read again"_s.arg(xml.size());
        return std::nullopt;
    }
    return xml;
}

} // namespace Tavik
