// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QAbstractButton;
class QLineEdit;

namespace Tavik {

/// A colour: its text to type, and a well that shows it and opens the ready colours.
class ColorField final : public QWidget
{
    Q_OBJECT

public:
    explicit ColorField(QWidget* parent = nullptr);

    [[nodiscard]] QLineEdit& hexEntry() const { return *m_entry; }
    [[nodiscard]] QAbstractButton& well() const { return *m_well; }
    /// Names the parts, and explains them with the field's own accessible description. The field
    /// itself has neither then, or a reader would say both twice.
    void setName(const QString& name);
    /// Shows a stored colour, also one that is none, without telling.
    void setHex(const QString& hex);

Q_SIGNALS:
    /// The user's colour as it is to be stored.
    void chosen(const QString& hex);

private:
    void typed(const QString& text);
    void openSwatches();

    QLineEdit* m_entry;
    QAbstractButton* m_well;
    QString m_hex;
};

} // namespace Tavik
