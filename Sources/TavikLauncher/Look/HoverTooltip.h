// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/MainQueue.h>

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QString>

class QWidget;

namespace Tavik {

/// Explains a control in a small label beside it, once the pointer has rested on it for a while.
/// Becomes a child of the control; its text is the control's description for assistive technology.
class HoverTooltip final : public QObject
{
    Q_OBJECT

public:
    static constexpr double defaultDelay = 0.6;

    struct Options
    {
        QString text;
        double delay = defaultDelay; ///< Seconds before it shows.
    };

    HoverTooltip(MainQueue& mainQueue, QWidget& control, Options options);
    ~HoverTooltip() override;

    /// Changes what is said, also while it is shown. Nothing is shown for an empty text.
    void setText(const QString& text);

    [[nodiscard]] const QString& text() const { return m_options.text; }
    [[nodiscard]] bool isHovering() const { return m_isHovering; }
    [[nodiscard]] bool isShowing() const { return m_isShowing; }
    /// The label while it is shown, else null.
    [[nodiscard]] QWidget* label() const;

    /// Where a label of this size goes for a control: left of it, else right of it, else below or
    /// above it; inside the window.
    [[nodiscard]] static QRect placement(const QRect& control, QSize label, const QRect& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void hoverChanged(bool isHovering);
    void show();
    void hide();

    MainQueue& m_mainQueue;
    QWidget& m_control;
    Options m_options;
    bool m_isHovering = false;
    bool m_isShowing = false;
    Task m_showTask;
    QPointer<QWidget> m_label; ///< The control's window owns it.
};

} // namespace Tavik
