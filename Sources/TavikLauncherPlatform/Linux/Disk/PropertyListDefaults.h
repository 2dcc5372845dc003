// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Disk/PropertyList.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/UserDefaults.h>

#include <QObject>

namespace Tavik {

class WorkQueue;

/// The user defaults in a property-list file that the user may read, edit and link to. Read once,
/// at construction; written as a whole, in the background, from the end of the main loop's turn in
/// which something changed, and at the latest on destruction. What cannot be written stays in
/// memory and is tried again at the next change; a file that cannot be understood is set aside,
/// one that cannot be opened is left where it is, and neither is overwritten.
class PropertyListDefaults final : public UserDefaults
{
public:
    PropertyListDefaults(QString path, MainQueue& mainQueue, WorkQueue& workQueue);
    ~PropertyListDefaults() override;
    PropertyListDefaults(const PropertyListDefaults&) = delete;
    PropertyListDefaults& operator=(const PropertyListDefaults&) = delete;

    /// Where the program keeps its defaults.
    [[nodiscard]] static QString defaultPath();

    [[nodiscard]] QVariant object(const QString& key) const override;
    void setObject(const QString& key, const QVariant& value) override;
    void setObjectSoon(const QString& key, const QVariant& value) override;

    /// Writes what has changed, before it returns. Not while a write is under way in the
    /// background.
    void flush();

private:
    void load();
    [[nodiscard]] std::optional<QString> setAside() const;
    void writeInBackground();
    /// The file's new content; absent, with the reason in `error`, when it must not be written.
    [[nodiscard]] std::optional<QByteArray> content(QString& error);
    void finishWrite(const std::optional<QString>& error);

    QString m_path;
    MainQueue& m_mainQueue;
    WorkQueue& m_workQueue;
    PropertyList m_values;
    bool m_isClosed = false; ///< The file could not be opened, and may be the user's good one.
    bool m_isInTheWay = false; ///< The file could be neither understood nor set aside.
    bool m_hasChanged = false;
    bool m_isPosted = false;
    bool m_isWriting = false; ///< In the background.
    bool m_isFailing = false;
    Task m_soon; ///< Writes what may wait.
    double m_waitingSince = 0;
    QObject m_alive; ///< Watched by what has been posted.
};

} // namespace Tavik
