// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/WrappedLabel.h>

namespace Tavik {

/// Wrapped text in one of the window's few sizes. A single word that is too long, a file's
/// name perhaps, is cut off rather than let it push the controls out of the window.
class Label final : public WrappedLabel
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

    explicit Label(Role role, const QString& text = {}, QWidget* parent = nullptr);

    [[nodiscard]] QSize minimumSizeHint() const override;
};

} // namespace Tavik
