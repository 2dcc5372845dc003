// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Look/HeldKeyGuard.h>

#include <QElapsedTimer>
#include <QPalette>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <functional>
#include <memory>

namespace Tavik {

class WindowServer;

/// A titled window around one view. Says when the user closes it; whether it is then kept or
/// forgotten is its owner's choice.
class AuxiliaryWindow : public QWidget
{
    Q_OBJECT

public:
    struct Options
    {
        QString title;
        /// Of the content, in points; fixed unless `smallestSize` is given, but never too small
        /// for its texts in the user's font. Empty: always as large as the content wants to be.
        QSize size;
        QSize smallestSize; ///< Makes the window resizable and lets it be minimised.
        bool skipsTaskbar = false;
        /// What it says is read out when it opens. A window to work in is too long for that.
        bool isDialog = true;
    };

    /// Takes `content`.
    AuxiliaryWindow(WindowServer& windowServer, const Options& options, QWidget* content);

    /// Puts the window with its frame in the middle of a rectangle of the toolkit's plane.
    void centerIn(const QRect& area);
    /// Brings the window to the front and gives it the keyboard.
    void activate();
    /// Shows the window, if it is not yet shown, and leaves the keyboard where it is.
    void appear();
    void setSkipsTaskbar(bool skips);
    [[nodiscard]] bool isDialog() const { return m_isDialog; }

    std::function<void()> onClose;
    /// Called when the window has been moved, resized, minimised or brought back.
    std::function<void()> onPlaceChanged;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fitContent();
    void applyLook();
    void centerWithFrame();
    void placeChanged();

    WindowServer& m_windowServer;
    bool m_skipsTaskbar;
    bool m_isDialog;
    QPointer<AuxiliaryWindow> m_openedFrom; ///< Where the user was when this came to the front.
    QPalette m_look; ///< What is shown now.
    QRect m_centeredIn; ///< Until the frame is known; empty otherwise.
    QElapsedTimer m_sinceCentered;
    QSize m_fixedSize; ///< Empty when the size is not fixed.
    HeldKeyGuard m_heldKeys;
};

/// A window may be forgotten from inside its own event.
struct DeleteLater
{
    void operator()(QObject* object) const { object->deleteLater(); }
};
using AuxiliaryWindowPointer = std::unique_ptr<AuxiliaryWindow, DeleteLater>;

} // namespace Tavik
