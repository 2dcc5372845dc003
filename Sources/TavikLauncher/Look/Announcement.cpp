// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/Announcement.h>

#include <QWidget>

#include <utility>

namespace Tavik {

namespace {

class Notification final : public QAccessibleInterface
{
public:
    Notification(QWidget& from, QString text)
        : m_from(from)
        , m_text(std::move(text))
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
    void setText(QAccessible::Text, const QString&) override { }

private:
    QWidget& m_from;
    const QString m_text;
};

} // namespace

Announcement::Announcement(QWidget& from)
    : m_from(from)
{ }

Announcement::~Announcement()
{
    forget();
}

void Announcement::say(const QString& text)
{
    if (!QAccessible::isActive()) {
        return;
    }
    // Readers keep the names of what they know: a new text is a new notification.
    forget();
    auto* notification = new Notification(m_from, text);
    m_notification = QAccessible::registerAccessibleInterface(notification);
    QAccessibleEvent event(notification, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
}

void Announcement::forget()
{
    if (m_notification != 0) {
        QAccessible::deleteAccessibleInterface(std::exchange(m_notification, 0));
    }
}

} // namespace Tavik
