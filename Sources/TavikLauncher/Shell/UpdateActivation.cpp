// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/UpdateActivation.h>

#include <QLocale>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double stepSeconds = 0.1;
constexpr int repositionSteps = 80;
constexpr int plainSteps = 20;

/// The shortest that reads back as the same number, never without a fraction.
QString decimal(double number)
{
    const QString digits = QString::number(number, 'f', QLocale::FloatingPointShortest);
    return digits.contains(u'.') ? digits : digits + u".0"_s;
}

QString text(const QRectF& rect)
{
    return u"(%1, %2, %3, %4)"_s.arg(
        decimal(rect.x()), decimal(rect.y()), decimal(rect.width()), decimal(rect.height()));
}

double area(const UpdateActivation::Window& window)
{
    return window.frame.width() * window.frame.height();
}

} // namespace

UpdateActivation::UpdateActivation(Dependencies dependencies)
    : m_dependencies(std::move(dependencies))
{ }

void UpdateActivation::activateForSparkleUI(const Options& options)
{
    m_sparkleActivationTimer.cancel();
    m_sparkleActivationAttempts = 0;
    m_sparkleWindowPositioned = false;
    m_sparkleActivationReposition = options.repositionUpdateWindow;
    m_sparkleActivationTarget = m_dependencies.application.activeScreen();
    if (sparkleActivationStep()) {
        return;
    }
    m_sparkleActivationTimer = m_dependencies.mainQueue.every(stepSeconds, [this] {
        if (sparkleActivationStep()) {
            m_sparkleActivationTimer.cancel();
        }
    });
}

bool UpdateActivation::sparkleActivationStep()
{
    ++m_sparkleActivationAttempts;
    m_dependencies.application.activateIgnoringOtherApps();
    return m_sparkleActivationReposition ? repositionStep() : plainStep();
}

bool UpdateActivation::repositionStep()
{
    Application& application = m_dependencies.application;
    if (const std::optional<Window> window = sparkleUpdateWindow()) {
        if (!m_sparkleWindowPositioned && m_sparkleActivationTarget) {
            position(*window, *m_sparkleActivationTarget);
        }
        application.orderFrontRegardless(window->id);
    }
    const bool isLast = m_sparkleActivationAttempts >= repositionSteps;
    return isLast || (m_sparkleWindowPositioned && application.isActive());
}

bool UpdateActivation::plainStep()
{
    Application& application = m_dependencies.application;
    if (application.isActive()) {
        application.orderKeyWindowFrontRegardless();
        return true;
    }
    return m_sparkleActivationAttempts >= plainSteps;
}

void UpdateActivation::position(const Window& window, const Screen& screen)
{
    const QString attempt = u"[attempt %1] "_s.arg(m_sparkleActivationAttempts);
    m_dependencies.logUpdateDebug(attempt + u"chose "_s + window.className + u" key="_s
                                  + (window.canBecomeKey ? u"true"_s : u"false"_s) + u" wc="_s
                                  + window.controllerDescription.value_or(u"nil"_s) + u" at "_s
                                  + text(window.frame));
    QRectF frame = window.frame;
    frame.moveCenter(screen.visibleFrame.center());
    m_dependencies.application.setFrameOrigin(window.id, frame.topLeft());
    m_sparkleWindowPositioned = true;
    m_dependencies.logUpdateDebug(attempt + u"moved to "_s + text(frame) + u" on "_s
                                  + text(screen.visibleFrame));
}

std::optional<UpdateActivation::Window> UpdateActivation::sparkleUpdateWindow() const
{
    QList<Window> candidates = m_dependencies.application.updaterWindows();
    candidates.removeIf([](const Window& window) { return !window.isVisible; });
    const auto key = std::ranges::find_if(candidates, &Window::canBecomeKey);
    if (key != candidates.end()) {
        return *key;
    }
    const auto largest = std::ranges::max_element(candidates, {}, area);
    return largest == candidates.end() ? std::nullopt : std::optional(*largest);
}

} // namespace Tavik
