// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Announcement.h>

#include <QWidget>

namespace Tavik {

class Label;

/// The outcome of what the user did, with a symbol; hidden while there is none. Screen readers
/// say it.
class OutcomeMessage final : public QWidget
{
    Q_OBJECT

public:
    enum class Kind {
        done,
        warning,
    };

    explicit OutcomeMessage(QWidget* parent = nullptr);

    [[nodiscard]] QString text() const;
    void say(Kind kind, const QString& text);
    void clear();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Label* m_label;
    Announcement m_announcement{*this};
    Kind m_kind = Kind::done;
};

} // namespace Tavik
