// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Pressable.h>

namespace Tavik {

/// A sliding switch for something that is on or off; `clicked` tells what the user did.
class Switch final : public Pressable
{
    Q_OBJECT

public:
    explicit Switch(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Tavik
