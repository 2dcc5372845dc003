// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

class QDBusArgument;

namespace Tavik {

/// A shortcut in a list of the portal's.
struct PortalShortcut
{
    QString id;
    QVariantMap properties;
};
QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

/// Questions to the desktop's portal, which answers each by a signal of an object that it makes for
/// it. Only what the portal itself says counts; every program on the bus could send such a signal.
/// Main thread only.
class PortalCalls final : public QObject
{
    Q_OBJECT

public:
    enum class Outcome {
        done,
        cancelled, ///< By the user, or by the desktop in the user's place.
        failed,
    };
    /// What the portal says to a question. `error` is for the log.
    struct Answer
    {
        Outcome outcome = Outcome::failed;
        QVariantMap results{};
        QString error{};
    };
    using Answered = std::function<void(const Answer&)>;

    explicit PortalCalls(const QDBusConnection& bus);

    /// The last part of the name of an object that the portal makes for us, and that name.
    [[nodiscard]] QString pathOf(const QString& kind, const QString& token) const;
    /// The bus's own name for the portal that is asked, empty while none is known.
    QString portal;

    /// `arguments` are those before the options. `answered` comes once at most, maybe after minutes
    /// where a user is asked, and not after `forget`.
    void ask(const QString& interfaceName,
             const QString& method,
             const QVariantList& arguments,
             QVariantMap options,
             Answered answered);
    /// Nothing that was asked is waited for any more.
    void forget();

private Q_SLOTS:
    void responded(const QDBusMessage& message);

private:
    void listen(const QString& path, bool listens);
    void finish(const QString& path, const Answer& answer);

    QDBusConnection m_bus;
    QHash<QString, Answered> m_waiting; ///< By the path of the object that answers.
    int m_lastToken = 0;
};

} // namespace Tavik

Q_DECLARE_METATYPE(Tavik::PortalShortcut)
