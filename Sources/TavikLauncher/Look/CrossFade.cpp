// SPDX-License-Identifier: MIT
#include <TavikLauncher/Look/CrossFade.h>

#include <QEasingCurve>
#include <QPainter>

namespace Tavik {

namespace {

constexpr double fadeSeconds = 0.35;
constexpr double frameSeconds = 1.0 / 60;

} // namespace

void CrossFade::begin(QWidget& widget, MainQueue& mainQueue)
{
    if (!widget.isVisible()) {
        return;
    }
    auto* fade = new CrossFade(widget, mainQueue);
    fade->show();
    fade->raise();
}

CrossFade::CrossFade(QWidget& widget, MainQueue& mainQueue)
    : QWidget(&widget)
    , m_mainQueue(mainQueue)
    , m_before(widget.grab())
    , m_startedAt(mainQueue.systemUptime())
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setGeometry(widget.rect());
    m_frames = mainQueue.every(frameSeconds, [this] { advance(); });
}

double CrossFade::progress() const
{
    return qBound(0.0, (m_mainQueue.systemUptime() - m_startedAt) / fadeSeconds, 1.0);
}

void CrossFade::advance()
{
    if (progress() < 1) {
        update();
        return;
    }
    m_frames.cancel();
    hide();
    deleteLater();
}

void CrossFade::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setOpacity(1 - QEasingCurve(QEasingCurve::InOutQuad).valueForProgress(progress()));
    painter.drawPixmap(0, 0, m_before);
}

} // namespace Tavik
