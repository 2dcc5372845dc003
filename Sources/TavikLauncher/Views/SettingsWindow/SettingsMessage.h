// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace Tavik {

class SettingsLabel;

/// The outcome of what the user did, with a symbol; hidden while there is none.
class SettingsMessage final : public QWidget
{
    Q_OBJECT

public:
    enum class Kind {
        done,
        warning,
    };

    explicit SettingsMessage(QWidget* parent = nullptr);

    [[nodiscard]] QString text() const;
    void say(Kind kind, const QString& text);
    void clear();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SettingsLabel* m_label;
    Kind m_kind = Kind::done;
};

} // namespace Tavik
