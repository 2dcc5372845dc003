// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/Linux/Desktops/PortalCalls.h>
#include <TavikLauncherPlatform/Linux/Desktops/ShortcutSource.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QDBusConnection>
#include <QObject>

#include <optional>

namespace Tavik {

class UserDefaults;
class WorkQueue;

/// The trigger as a global shortcut that the desktop's portal gives, where it has such a portal:
/// elsewhere this is as good as nothing. The portal may show a question, so it is asked only after
/// the user has agreed. A shortcut that it still lists at the next start is not asked for again.
///
/// The portal gives it to a session, which lasts as long as we do: to end one and begin another
/// might show the question each time. So it keeps the keys also while nobody listens.
class PortalShortcuts final : public QObject, public ShortcutSource
{
    Q_OBJECT

public:
    struct Dependencies
    {
        MainQueue& mainQueue;
        WorkQueue& workQueue;
        UserDefaults& userDefaults; ///< Remember the consent.
    };

    explicit PortalShortcuts(const Dependencies& dependencies);
    ~PortalShortcuts() override;

    [[nodiscard]] bool isThere() const override { return m_isOffered; }
    [[nodiscard]] bool hearsChords() const override { return !m_isOffered; }
    [[nodiscard]] bool hidesKeys() const override { return false; }
    /// What was had at the last start is taken to be had until the portal says otherwise.
    [[nodiscard]] bool serves() const override;
    [[nodiscard]] Means means() const override;
    [[nodiscard]] bool tellsReleases() const override { return true; }
    [[nodiscard]] bool awaitsConsent() const override;
    [[nodiscard]] QString request() const override;
    void allow() override;
    int bind(const KeyEvents::HotKey& hotKey, Handlers handlers) override;
    void unbind() override { m_handlers = {}; }
    /// The portal tells nobody which keys are taken.
    [[nodiscard]] int status(const KeyEvents::HotKey& hotKey) override;

private Q_SLOTS:
    void activated(const QDBusMessage& message);
    void deactivated(const QDBusMessage& message);
    void changed(const QDBusMessage& message);
    void closed(const QDBusMessage& message);

private:
    enum class Phase {
        idle,
        beginning, ///< A session, and what it has.
        asking, ///< For the shortcut, and maybe the user.
        bound,
        ending,
    };
    struct Wanted
    {
        QString id; ///< Another for other keys, as a portal keeps to what it has given to one.
        QString keys; ///< In the portal's words; empty where it has none for them.
        bool operator==(const Wanted&) const = default;
    };

    void opened(const QDBusConnection& bus);
    void ownerChanged(const QString& owner);
    void lookForPortal();
    void beginSession();
    void lookForShortcut();
    void askForShortcut();
    void endSession();
    [[nodiscard]] QString session() const;
    [[nodiscard]] QVariant wantedList() const;
    void bound(const QString& description);
    void fail(const QString& reason);
    [[nodiscard]] bool isOurs(const QDBusMessage& message) const;
    [[nodiscard]] bool isAllowed() const;

    Dependencies m_dependencies;
    std::optional<QDBusConnection> m_bus; ///< Present once it is open.
    std::optional<PortalCalls> m_calls; ///< Likewise.
    std::optional<Wanted> m_wanted;
    Handlers m_handlers;
    Phase m_phase = Phase::idle;
    QString m_description; ///< Of the keys that were given; may be empty.
    Task m_patience;
    Task m_restart;
    int m_restarts = 0;
    bool m_isOffered = false;
    bool m_isExpected = false; ///< It was had before, and nothing is known against it.
    bool m_hasFailed = false;
};

} // namespace Tavik
