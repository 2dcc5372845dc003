// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace Tavik {

/// Plain text, wrapped, in one of the window's few sizes.
class SettingsLabel final : public QLabel
{
    Q_OBJECT

public:
    enum class Role {
        title, ///< Of a page.
        subtitle,
        heading, ///< Of a card.
        body,
        help,
    };

    explicit SettingsLabel(Role role, const QString& text = {}, QWidget* parent = nullptr);
};

} // namespace Tavik
