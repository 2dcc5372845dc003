// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

namespace Tavik {

/// Plain text that wraps so that no word or two stand alone on the last line: such a text is set a
/// little narrower, and takes no more lines. Text that can be selected wraps as the toolkit has it.
class WrappedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit WrappedLabel(const QString& text = {}, QWidget* parent = nullptr);

    /// The least width, in points, that takes no more lines than `width` does.
    [[nodiscard]] static int narrowestWidth(const QString& text, const QFont& font, int width);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace Tavik
