// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Views/Windows/ReindexSession.h>
#include <TavikLauncherPlatform/DesktopAppearance.h>

#include <utility>

namespace Tavik {

namespace {
constexpr double celebrationDelay = 0.08;
constexpr double frameSeconds = 1.0 / 60;
constexpr double smallMark = 0.4;
constexpr double fullMark = 1.0;
constexpr double markTolerance = 0.001;
} // namespace

ReindexSession::ReindexSession(const Dependencies& dependencies,
                               std::function<void()> onCelebrate,
                               QObject* parent)
    : QObject(parent)
    , m_dependencies(dependencies)
    , m_onCelebrate(std::move(onCelebrate))
    , m_markScale{.response = 0.35, .dampingFraction = 0.6, .value = smallMark, .target = smallMark}
{
    connect(&m_dependencies.catalog,
            &AppCatalog::isIndexingChanged,
            this,
            &ReindexSession::walkChanged);
    connect(&m_dependencies.catalog,
            &AppCatalog::appsChanged,
            this,
            &ReindexSession::indexedCountChanged);
}

void ReindexSession::reindexNow()
{
    m_phase = Phase::running;
    m_startedByThisWindow = true;
    Q_EMIT phaseChanged();
    m_dependencies.catalog.reindexFromScratch();
}

qsizetype ReindexSession::indexedCount() const
{
    return m_dependencies.catalog.apps().size();
}

void ReindexSession::walkChanged()
{
    if (m_dependencies.catalog.isIndexing() || !m_startedByThisWindow) {
        return;
    }
    // What others walk later is none of this window's successes.
    m_startedByThisWindow = false;
    m_phase = Phase::success;
    Q_EMIT phaseChanged();
    // The success is laid out before it moves.
    m_celebration = m_dependencies.mainQueue.after(celebrationDelay, [this] { celebrate(); });
}

void ReindexSession::celebrate()
{
    m_celebrates = true;
    m_markScale.target = fullMark;
    if (m_dependencies.appearance.reducesMotion()) {
        m_markScale.jumpTo(fullMark);
        Q_EMIT markScaleChanged();
    } else if (!m_markScale.isAtRest()) {
        m_lastFrame = m_dependencies.mainQueue.systemUptime();
        m_frames = m_dependencies.mainQueue.every(frameSeconds, [this] { stepMark(); });
    }
    if (m_onCelebrate) {
        m_onCelebrate();
    }
}

void ReindexSession::stepMark()
{
    const double now = m_dependencies.mainQueue.systemUptime();
    m_markScale.advance(now - std::exchange(m_lastFrame, now), markTolerance);
    if (m_markScale.isAtRest()) {
        m_frames.cancel();
    }
    Q_EMIT markScaleChanged();
}

} // namespace Tavik
