// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/AuxiliaryWindow.h>
#include <TavikLauncher/Look/Look.h>
#include <TavikLauncher/Look/TavikIconFactory.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QAccessibleWidget>
#include <QApplication>
#include <QBackingStore>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QVBoxLayout>
#include <QWindow>

#include <utility>

namespace Tavik {

namespace {

constexpr int iconSide = 256;

QAccessibleInterface* makeDialogInterface(const QString&, QObject* object)
{
    auto* window = qobject_cast<AuxiliaryWindow*>(object);
    return window && window->isDialog() ? new QAccessibleWidget(window, QAccessible::Dialog)
                                        : nullptr;
}

} // namespace

AuxiliaryWindow::AuxiliaryWindow(WindowServer& windowServer,
                                 const Options& options,
                                 QWidget* content)
    : m_windowServer(windowServer)
    , m_skipsTaskbar(options.skipsTaskbar)
    , m_isDialog(options.isDialog)
    , m_heldKeys(*this)
{
    QAccessible::installFactory(makeDialogInterface); // Which is done once.
    const bool isResizable = !options.smallestSize.isEmpty();
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint
        | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (isResizable) {
        flags |= Qt::WindowMinMaxButtonsHint;
    }
    setWindowFlags(flags);
    setWindowTitle(options.title);
    setWindowIcon(TavikIconFactory::appIcon(iconSide));
    setAttribute(Qt::WA_QuitOnClose, false);
    applyLook();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(content);
    if (isResizable) {
        setMinimumSize(options.smallestSize);
        resize(options.size);
    } else if (options.size.isEmpty()) {
        layout->setSizeConstraint(QLayout::SetFixedSize);
    } else {
        m_fixedSize = options.size;
        fitContent();
    }
}

void AuxiliaryWindow::fitContent()
{
    if (!m_fixedSize.isEmpty()) {
        setFixedSize(m_fixedSize.expandedTo(layout()->minimumSize()));
    }
}

/// The same colours as the settings have, also where the toolkit's palette has others.
void AuxiliaryWindow::applyLook()
{
    const QPalette look = Look::of(QGuiApplication::palette()).palette();
    if (look != m_look) {
        m_look = look;
        setPalette(look);
    }
}

void AuxiliaryWindow::centerIn(const QRect& area)
{
    if (layout()->sizeConstraint() == QLayout::SetFixedSize) {
        // Before it is first shown it is not yet as large as its content wants it to be.
        ensurePolished();
        layout()->activate();
    }
    QRect frame = frameGeometry();
    frame.moveCenter(area.center());
    move(frame.topLeft());
    m_centeredIn = area;
    m_sinceCentered.start();
}

void AuxiliaryWindow::centerWithFrame()
{
    // The window manager takes its time to put its frame around a window, and moves the window by
    // it. Later it is the user who moves it.
    constexpr int settlingMilliseconds = 700;
    const bool hasFrame = windowHandle() && !windowHandle()->frameMargins().isNull();
    if (m_centeredIn.isEmpty() || !isVisible() || !hasFrame) {
        return;
    }
    const QRect area = std::exchange(m_centeredIn, QRect());
    if (m_sinceCentered.elapsed() < settlingMilliseconds) {
        QRect frame = windowHandle()->frameGeometry();
        frame.moveCenter(area.center());
        const QMargins margins = windowHandle()->frameMargins();
        setGeometry(QRect(frame.topLeft(), frame.size()).marginsRemoved(margins));
    }
}

void AuxiliaryWindow::activate()
{
    if (QApplication::activeWindow() != this) {
        m_openedFrom = qobject_cast<AuxiliaryWindow*>(QApplication::activeWindow());
    }
    m_windowServer.setSkipsTaskbar(winId(), m_skipsTaskbar);
    if (isMinimized()) {
        showNormal();
    } else {
        show();
    }
    raise();
    activateWindow();
    m_windowServer.takeKeyboardFocus(winId());
}

void AuxiliaryWindow::appear()
{
    m_windowServer.setSkipsTaskbar(winId(), m_skipsTaskbar);
    // Some window managers give the keyboard to a window that raises itself, and all of them to one
    // that is new unless it asks them not to.
    setAttribute(Qt::WA_ShowWithoutActivating);
    show();
    setAttribute(Qt::WA_ShowWithoutActivating, false);
}

void AuxiliaryWindow::setSkipsTaskbar(bool skips)
{
    m_skipsTaskbar = skips;
    if (internalWinId()) {
        m_windowServer.setSkipsTaskbar(internalWinId(), skips);
    }
}

bool AuxiliaryWindow::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) {
        fitContent();
    } else if (event->type() == QEvent::ApplicationPaletteChange) {
        applyLook();
    }
    return QWidget::event(event);
}

void AuxiliaryWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        placeChanged();
    }
}

void AuxiliaryWindow::closeEvent(QCloseEvent* event)
{
    event->accept();
    const bool isLeft = isActiveWindow();
    if (onClose) {
        onClose();
    }
    // Some window managers give the keyboard to nobody rather than to a window that is in no
    // taskbar.
    if (isLeft && m_openedFrom && m_openedFrom->isVisible() && !m_openedFrom->isMinimized()) {
        m_openedFrom->activate();
    }
}

void AuxiliaryWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    if (event->spontaneous()) {
        return;
    }
    if (QBackingStore* pixels = backingStore()) {
        // Megabytes that nobody sees; the next showing makes them anew at the window's size.
        pixels->resize({1, 1});
    }
}

void AuxiliaryWindow::moveEvent(QMoveEvent* event)
{
    QWidget::moveEvent(event);
    centerWithFrame();
    placeChanged();
}

void AuxiliaryWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeChanged();
}

void AuxiliaryWindow::placeChanged()
{
    if (onPlaceChanged) {
        onPlaceChanged();
    }
}

} // namespace Tavik
