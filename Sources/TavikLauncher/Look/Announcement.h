// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QString>

class QWidget;

namespace Tavik {

/// Has a screen reader say something that is not where the focus is. The toolkit has no event for
/// that before its version 6.8; what all readers speak is a notification that comes to be shown. It
/// is not among the widget's children, because nobody is to walk into it.
class Announcement final
{
public:
    /// `from` is what it is about, and must outlive it.
    explicit Announcement(QWidget& from);
    ~Announcement();
    Announcement(const Announcement&) = delete;
    Announcement& operator=(const Announcement&) = delete;

    /// Costs nothing where nobody listens.
    void say(const QString& text);

private:
    void forget();

    QWidget& m_from;
    QAccessible::Id m_notification = 0; ///< The last one, which readers may still ask.
};

} // namespace Tavik
