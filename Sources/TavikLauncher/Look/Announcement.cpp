// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Announcement.h>

#include <QWidget>

namespace Tavik {

namespace {

class Notification final : public QAccessibleInterface
{
public:
    explicit Notification(QWidget& from)
        : m_from(from)
    { }

    [[nodiscard]] bool isValid() const override { return true; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override { return m_from.window()->windowHandle(); }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(&m_from);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Notification; }
    [[nodiscard]] QAccessible::State state() const override { return {}; }
    [[nodiscard]] QRect rect() const override
    {
        return {m_from.mapToGlobal(QPoint()), m_from.size()};
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_text : QString();
    }
    void setText(QAccessible::Text, const QString& text) override { m_text = text; }

private:
    QWidget& m_from;
    QString m_text;
};

} // namespace

Announcement::Announcement(QWidget& from)
    : m_from(from)
{ }

Announcement::~Announcement()
{
    if (m_notification != 0) {
        QAccessible::deleteAccessibleInterface(m_notification);
    }
}

void Announcement::say(const QString& text)
{
    if (!QAccessible::isActive()) {
        return;
    }
    if (m_notification == 0) {
        m_notification = QAccessible::registerAccessibleInterface(new Notification(m_from));
    }
    QAccessibleInterface* notification = QAccessible::accessibleInterface(m_notification);
    notification->setText(QAccessible::Name, text);
    for (const QAccessible::Event kind : {QAccessible::NameChanged, QAccessible::ObjectShow}) {
        QAccessibleEvent event(notification, kind);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace Tavik
