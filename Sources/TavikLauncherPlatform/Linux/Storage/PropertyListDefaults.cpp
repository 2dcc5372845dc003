// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Storage/PropertyListDefaults.h>
#include <TavikLauncherPlatform/Linux/Storage/ReplaceFile.h>
#include <TavikLauncherPlatform/Linux/Storage/StorageLog.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

std::optional<PropertyList> readPropertyList(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    // One byte too many is refused there.
    return PropertyList::fromXml(file.read(PropertyList::mostBytes + 1));
}

} // namespace

PropertyListDefaults::PropertyListDefaults(QString path, MainQueue& mainQueue)
    : m_path(std::move(path))
    , m_mainQueue(mainQueue)
{
    load();
}

PropertyListDefaults::~PropertyListDefaults()
{
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
    if (auto values = readPropertyList(m_path)) {
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
                flush();
            }
        });
    }
}

void PropertyListDefaults::flush()
{
    if (!m_hasChanged) {
        return;
    }
    const auto error = write();
    if (error && !m_isFailing) {
        qCWarning(storageLog).noquote() << "TavikLauncher: failed to save settings:" << *error;
    }
    m_isFailing = error.has_value();
    m_hasChanged = error.has_value();
}

std::optional<QString> PropertyListDefaults::write()
{
    if (m_isInTheWay) {
        m_isInTheWay = QFileInfo::exists(m_path) && !setAside();
    }
    if (m_isInTheWay) {
        return u"%1 is damaged and could not be set aside"_s.arg(m_path);
    }
    const QByteArray xml = m_values.toXml();
    if (xml.size() > PropertyList::mostBytes) {
        // The next start would refuse it, so the file that can still be read stays.
        return u"%1 bytes are too many"_s.arg(xml.size());
    }
    return replaceFile(m_path, xml, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace Tavik
