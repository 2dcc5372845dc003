// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>
#include <QWidget>

namespace Tavik {

/// A shortcut drawn as the keys of a keyboard, one beside the other. A picture: the name of the
/// shortcut is always said in a text as well, so assistive technology passes it over.
class Keycaps final : public QWidget
{
    Q_OBJECT

public:
    explicit Keycaps(const QStringList& keys, QWidget* parent = nullptr);

    void setKeys(const QStringList& keys);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int widthOf(const QString& key) const;

    QStringList m_keys;
};

} // namespace Tavik
