// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QWidget>

namespace Tavik {

/// The program's icon as part of a window: an ornament, so that assistive technology passes it
/// over.
class AppIconView final : public QWidget
{
    Q_OBJECT

public:
    /// `side` is in points.
    AppIconView(int side, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon m_icon;
};

} // namespace Tavik
