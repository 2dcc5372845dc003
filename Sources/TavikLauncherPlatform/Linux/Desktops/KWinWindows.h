// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Applications/ToldWindows.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QTemporaryFile>

#include <memory>
#include <optional>

class QDBusMessage;

namespace Tavik {

class WorkQueue;

/// The windows of KWin, also those of its X server. A script inside of it tells of them, since
/// nothing else does without a permission; raised they are as KDE's own search raises them.
class KWinWindows final : public QObject, public ToldWindows, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.tavik.Launcher.Windows")

public:
    /// The queues must outlive it.
    KWinWindows(MainQueue& mainQueue, WorkQueue& workQueue);
    ~KWinWindows() override;

    [[nodiscard]] Means runningMeans() const override;
    [[nodiscard]] Means raisingMeans() const override;

public Q_SLOTS:
    /// Called by the script, whose words are JSON.
    Q_SCRIPTABLE void tellWindows(const QString& windows);
    Q_SCRIPTABLE void tellActive(const QString& window);

private:
    void raise(const QString& name) override;
    void opened(const QDBusConnection& bus);
    void load();
    void run(const QDBusMessage& loaded);
    void forget();
    void giveUp(const QString& why);
    [[nodiscard]] bool isFromKWin() const;

    MainQueue& m_mainQueue;
    std::optional<QDBusConnection> m_bus; ///< Present once it is open.
    std::unique_ptr<QTemporaryFile> m_script; ///< Until it has been read.
    QString m_kwin; ///< The connection that the script speaks over.
    Task m_silenceTask; ///< While the script has not spoken.
};

} // namespace Tavik
