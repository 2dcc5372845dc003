// SPDX-License-Identifier: MIT
#include <TavikLauncher/Views/Windows/ConfettiBurst.h>
#include <TavikLauncher/Views/Windows/ConfettiWindow.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/ScreenPlane.h>
#include <TavikLauncherPlatform/WindowServer.h>

#include <QApplication>
#include <QPainter>
#include <QPolygonF>
#include <QRandomGenerator>
#include <QScreen>
#include <QTransform>
#include <QWidget>
#include <QWindow>

#include <cmath>
#include <utility>

namespace Tavik::ConfettiWindow {

namespace {

constexpr double closeSeconds = 4.6;
constexpr double frameSeconds = 1.0 / 60;
constexpr QSizeF pieceSize = ConfettiBurst::pieceSize;
constexpr QRectF pieceRect(QPointF(-pieceSize.width() / 2, -pieceSize.height() / 2), pieceSize);

/// Covers all that the burst reaches on its screen, so that nothing is cut off. It deletes itself
/// when it has closed.
class Overlay final : public QWidget
{
public:
    /// `frame` is the toolkit's; `planeBottom` the lower edge of the burst's plane in it.
    Overlay(const Dependencies& dependencies,
            ConfettiBurst burst,
            const QRect& frame,
            double planeBottom)
        // A tooltip in the eyes of the window system: above everything, on every desktop, in no
        // taskbar, and no window manager moves it or gives it the keyboard.
        : QWidget(nullptr,
                  Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint
                      | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus
                      | Qt::NoDropShadowWindowHint)
        , m_dependencies(dependencies)
        , m_burst(std::move(burst))
        , m_planeBottom(planeBottom)
    {
        setObjectName(QStringLiteral("confetti"));
        setAttribute(Qt::WA_TranslucentBackground);
        setAttribute(Qt::WA_ShowWithoutActivating);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_DeleteOnClose);
        setAttribute(Qt::WA_QuitOnClose, false);
        setGeometry(frame);
    }

    void start()
    {
        m_begin = m_dependencies.mainQueue.systemUptime();
        step();
        m_dependencies.windowServer.declineShadow(winId());
        show();
        m_frames = m_dependencies.mainQueue.every(frameSeconds, [this] { step(); });
        m_close = m_dependencies.mainQueue.after(closeSeconds, [this] { close(); });
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        if (!m_isBlended) {
            paintUnblended(painter);
            return;
        }
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        constexpr double radius = ConfettiBurst::pieceCornerRadius;
        for (const ConfettiBurst::Piece& piece : m_pieces) {
            painter.setTransform(transform(piece), false);
            painter.setOpacity(piece.opacity);
            painter.setBrush(piece.color);
            painter.drawRoundedRect(pieceRect, radius, radius);
        }
    }

private:
    [[nodiscard]] QTransform transform(const ConfettiBurst::Piece& piece) const
    {
        const QPointF center = ScreenPlane::flipped(piece.center, m_planeBottom) - QPointF(pos());
        QTransform transform = QTransform::fromTranslate(center.x(), center.y());
        transform.rotateRadians(-piece.angle);
        return transform.scale(piece.scale, piece.scale);
    }

    void step()
    {
        const double seconds = m_dependencies.mainQueue.systemUptime() - m_begin;
        m_pieces = m_burst.pieces(seconds);
        if (seconds >= m_burst.duration()) {
            m_frames.cancel();
        }
        m_isBlended = m_dependencies.windowServer.isCompositing();
        QRegion now;
        if (m_isBlended) {
            clearMask();
            now = QRegion(boundingRect());
        } else {
            // What is not a piece must not be window either, and what would fade shrinks.
            for (ConfettiBurst::Piece& piece : m_pieces) {
                piece.scale *= piece.opacity;
            }
            now = silhouette();
            setMask(now.isEmpty() ? QRegion(0, 0, 1, 1) : now);
        }
        update(now | m_painted);
        m_painted = now;
    }

    void paintUnblended(QPainter& painter) const
    {
        for (const ConfettiBurst::Piece& piece : m_pieces) {
            for (const QRect& part : QRegion(outline(piece))) {
                painter.fillRect(part, piece.color);
            }
        }
    }

    [[nodiscard]] QPolygon outline(const ConfettiBurst::Piece& piece) const
    {
        return transform(piece).mapToPolygon(pieceRect.toAlignedRect());
    }
    [[nodiscard]] QRect boundingRect() const
    {
        QRect all;
        for (const ConfettiBurst::Piece& piece : m_pieces) {
            all |= outline(piece).boundingRect().adjusted(-2, -2, 2, 2);
        }
        return all;
    }
    [[nodiscard]] QRegion silhouette() const
    {
        QRegion all;
        for (const ConfettiBurst::Piece& piece : m_pieces) {
            all |= QRegion(outline(piece));
        }
        return all & rect();
    }

    Dependencies m_dependencies;
    ConfettiBurst m_burst;
    double m_planeBottom;
    double m_begin = 0;
    std::vector<ConfettiBurst::Piece> m_pieces;
    bool m_isBlended = true;
    QRegion m_painted;
    Task m_frames;
    Task m_close;
};

} // namespace

void burst(const Dependencies& dependencies, const QWidget* window)
{
    const QScreen* screen = window ? window->screen() : QGuiApplication::primaryScreen();
    if (!screen || dependencies.appearance.reducesMotion()) {
        return;
    }
    // Any level will do for the plane, as it is turned back the same way.
    const double planeBottom = screen->geometry().y() + screen->geometry().height();
    const QRectF over = window
        ? ScreenPlane::flipped(QRectF(window->window()->frameGeometry()), planeBottom)
        : QRectF();
    const QRectF from = ConfettiBurst::placement(
        over, ScreenPlane::flipped(QRectF(screen->availableGeometry()), planeBottom));
    // In a plane that grows upwards the upper edge is the one with the larger y.
    ConfettiBurst confetti(
        from.bottomLeft(), from.bottomRight(), QRandomGenerator::global()->generate());

    const QRect reach = ScreenPlane::flipped(confetti.bounds(), planeBottom).toAlignedRect();
    auto* overlay
        = new Overlay(dependencies, std::move(confetti), reach & screen->geometry(), planeBottom);
    // Nothing else owns it, and what it depends on goes when the program ends.
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, overlay, &QWidget::close);
    if (window && window->window()->windowHandle()) {
        overlay->winId();
        overlay->windowHandle()->setTransientParent(window->window()->windowHandle());
    }
    overlay->start();
}

} // namespace Tavik::ConfettiWindow
