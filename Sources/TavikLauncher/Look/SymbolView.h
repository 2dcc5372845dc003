// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/Symbol.h>

#include <QColor>
#include <QWidget>

namespace Tavik {

/// A drawn symbol as part of a window: an ornament, so that assistive technology passes it over.
class SymbolView final : public QWidget
{
    Q_OBJECT

public:
    /// Derives the symbol's colour from the palette, so that it follows light and dark.
    using ColorOf = QColor (*)(const QPalette&);

    /// `side` is in points.
    SymbolView(Symbol symbol, double side, ColorOf colorOf, QWidget* parent);

    /// Draws the symbol about its middle at `scale`; above 1 it needs room around it.
    void setScale(double scale);
    [[nodiscard]] double scale() const { return m_scale; }

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Symbol m_symbol;
    double m_side;
    ColorOf m_colorOf;
    double m_scale = 1;
};

} // namespace Tavik
