// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>

namespace Tavik {

class Label;

/// The two lists of ready colours with their names, and the way to any other, in a card over the
/// page, beside the control that asked for it. It goes when something is done elsewhere, by Return,
/// and by Escape, which also undoes what was picked. A child of the window, so that
/// no window system can misplace it; owned by it.
class SwatchPopover final : public QWidget
{
    Q_OBJECT

public:
    /// Shows the popover beside `anchor` with `hex` marked; `picked` is called for every pick.
    static SwatchPopover*
    open(QWidget& anchor, const QString& hex, std::function<void(const QString& hex)> picked);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool isNext) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    SwatchPopover(QWidget& anchor,
                  const QString& hex,
                  std::function<void(const QString& hex)> picked);
    void placeBeside(const QWidget& anchor);
    void dismiss();
    void openDialog();

    QPointer<QWidget> m_anchor;
    QString m_original; ///< What Escape goes back to.
    QString m_shown; ///< As last picked.
    Label* m_name = nullptr; ///< Of the swatch under the pointer, or with the focus.
    std::function<void(const QString& hex)> m_picked;
};

} // namespace Tavik
