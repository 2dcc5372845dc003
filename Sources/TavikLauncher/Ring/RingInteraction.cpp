// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Catalog/AppLauncher.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherPresentationState.h>
#include <TavikLauncher/Ring/RingGeometry.h>
#include <TavikLauncher/Ring/RingInteraction.h>
#include <TavikLauncher/Settings/LauncherSettings.h>
#include <TavikLauncherPlatform/Workspace.h>

#include <QSet>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr double debounceSeconds = 0.12;
constexpr double topDegrees = -90.0;

bool shapesTheRing(const QString& property)
{
    static const QSet<QString> names{
        u"ringDiameter"_s,
        u"ringThickness"_s,
        u"iconSize"_s,
        u"maxVisibleApps"_s,
        u"searchesAllApps"_s,
        u"fillsRingWithRecentApps"_s,
        u"permanentAppPaths"_s,
        u"pinnedPermanentAppPaths"_s,
    };
    return names.contains(property);
}

/// `text` without its last user-perceived character.
QString withoutLastCharacter(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.toEnd();
    return text.first(std::max<qsizetype>(finder.toPreviousBoundary(), 0));
}

} // namespace

RingInteraction::RingInteraction(const Dependencies& dependencies,
                                 QString ownIdentifier,
                                 std::function<void()> onClose)
    : m_dependencies(dependencies)
    , m_outside(dependencies.fileManager, dependencies.workQueue)
    , m_composition({dependencies.catalog,
                     dependencies.settings,
                     dependencies.recents,
                     dependencies.workspace,
                     m_outside},
                    std::move(ownIdentifier))
    , m_onClose(std::move(onClose))
    , m_launchHint(
          dependencies.settings, dependencies.mainQueue, [this] { Q_EMIT centerChanged(); })
{
    installObservers();
}

RingInteraction::~RingInteraction()
{
    disappear();
}

bool RingInteraction::isIndexing() const
{
    return m_dependencies.catalog.isIndexing();
}

void RingInteraction::installObservers()
{
    connect(&m_dependencies.catalog, &AppCatalog::appsChanged, this, [this] {
        refreshRing();
        m_outside.check();
    });
    connect(&m_outside, &OutsideApps::changed, this, &RingInteraction::outsideChanged);
    connect(&m_dependencies.catalog,
            &AppCatalog::isIndexingChanged,
            this,
            &RingInteraction::centerChanged);
    connect(&m_dependencies.settings,
            &LauncherSettings::propertyChanged,
            this,
            [this](const QString& property) {
                if (shapesTheRing(property)) {
                    refreshRing();
                }
            });
}

void RingInteraction::appear()
{
    fillCommands();
    installWorkspaceObservers();
    refreshRing();
}

void RingInteraction::disappear()
{
    m_launchHint.cancel();
    m_debounceTask.cancel();
    m_workspaceObservers.clear();
    m_dependencies.commands
        = LauncherCommands{.pinForSearch = std::move(m_dependencies.commands.pinForSearch)};
}

void RingInteraction::fillCommands()
{
    LauncherCommands& commands = m_dependencies.commands;
    commands.moveSelectionLeft = [this] {
        moveSelectionLeft();
    };
    commands.moveSelectionRight = [this] {
        moveSelectionRight();
    };
    // There are no rows on a ring: up and down turn it as left and right do.
    commands.moveSelectionUp = commands.moveSelectionLeft;
    commands.moveSelectionDown = commands.moveSelectionRight;
    commands.activate = [this] {
        launchSelected();
    };
    commands.quickLaunchAtIndex = [this](int digit) {
        quickLaunch(digit);
    };
    commands.insertText = [this](const QString& text) {
        insertSearchText(text);
    };
    commands.deleteBackward = [this] {
        deleteSearchCharacter();
    };
    commands.showPinnedIndicator = [this] {
        showPinnedIndicator();
    };
    commands.prepareForShow = [this](bool isUserSummon) {
        prepareForShow(isUserSummon);
    };
}

void RingInteraction::installWorkspaceObservers()
{
    if (!m_workspaceObservers.empty()) {
        return;
    }
    NotificationCenter& center = m_dependencies.workspace.notificationCenter();
    const auto refresh = [this](const NotificationCenter::Notification&) {
        refreshRing();
    };
    m_workspaceObservers.push_back(center.addObserver(Workspace::didLaunchApplication, refresh));
    m_workspaceObservers.push_back(center.addObserver(Workspace::didTerminateApplication, refresh));
    m_workspaceObservers.push_back(center.addObserver(
        Workspace::didChangeStartingApplications, [this](const NotificationCenter::Notification&) {
            m_starting = m_dependencies.workspace.startingApplications();
            Q_EMIT ringChanged();
        }));
}

void RingInteraction::prepareForShow(bool isUserSummon)
{
    m_debounceTask.cancel();
    m_query.clear();
    m_debouncedQuery.clear();
    m_selectedIndex = 0;
    m_showsSelectionLabel = false;
    m_isPinnedForSearch = false;
    m_hover = {};
    if (isUserSummon) {
        m_launchHint.presentLaunchHintIfDue();
    } else {
        m_launchHint.dismissLaunchHint();
    }
    refreshRing();
    Q_EMIT centerChanged();
    m_outside.check();
}

void RingInteraction::refreshRing()
{
    const RingComposition::RunningSets running = m_composition.runningApplications();
    const QList<IndexedApp> apps
        = m_composition.defaultRingApps(m_composition.baseList(m_query, m_debouncedQuery));
    const int last = static_cast<int>(apps.size()) - 1;
    m_running = running;
    m_starting = m_dependencies.workspace.startingApplications();
    m_ringApps = apps;
    m_selectedIndex = std::max(std::min(last, m_selectedIndex), 0);
    updateHighlightedAngle(m_selectedIndex, false);
    Q_EMIT ringChanged();
}

void RingInteraction::outsideChanged()
{
    // A slow drive answers late, and nothing may move under the hand of who is choosing.
    if (!hasActiveSelection()) {
        refreshRing();
    }
}

void RingInteraction::updateHighlightedAngle(int index, bool animated)
{
    if (m_ringApps.isEmpty()) {
        m_highlightedAngleDegrees = topDegrees;
    } else {
        const double target = RingGeometry::slotAngle(index, static_cast<int>(m_ringApps.size()));
        m_highlightedAngleDegrees
            = animated ? nearestEquivalentAngle(target, m_highlightedAngleDegrees) : target;
    }
    Q_EMIT highlightMoved(animated);
}

void RingInteraction::hoverAt(QPointF point, const RingGeometry& geometry)
{
    if (!m_dependencies.presentation.acceptsHover() || !m_hover.engages(point)) {
        return;
    }
    if (const std::optional<int> slot = geometry.slotAt(point)) {
        updateSelectedIndex(*slot);
    }
}

void RingInteraction::updateSelectedIndex(int index)
{
    if (index < 0 || index >= m_ringApps.size() || index == m_selectedIndex) {
        return;
    }
    select(index);
}

void RingInteraction::clickSlot(int index)
{
    m_selectedIndex = index;
    launchSelected();
}

void RingInteraction::moveSelectionLeft()
{
    moveSelection(-1);
}

void RingInteraction::moveSelectionRight()
{
    moveSelection(1);
}

void RingInteraction::moveSelection(int step)
{
    if (m_ringApps.isEmpty()) {
        return;
    }
    const int count = static_cast<int>(m_ringApps.size());
    select((m_selectedIndex + step + count) % count);
}

void RingInteraction::select(int index)
{
    m_selectedIndex = index;
    m_showsSelectionLabel = true;
    // Who uses the ring has read enough.
    m_launchHint.dismissLaunchHint();
    updateHighlightedAngle(index, true);
    Q_EMIT centerChanged();
}

void RingInteraction::launchSelected()
{
    if (m_selectedIndex < 0 || m_selectedIndex >= m_ringApps.size()) {
        return;
    }
    // A copy: launching records the application, which may already change the ring.
    const IndexedApp app = m_ringApps.at(m_selectedIndex);
    m_dependencies.launcher.launch(app);
    m_onClose();
}

void RingInteraction::quickLaunch(int digit)
{
    const int index = digit - 1;
    if (index < 0 || index >= m_ringApps.size()) {
        return;
    }
    clickSlot(index);
}

void RingInteraction::insertSearchText(const QString& text)
{
    filterNow(m_query + text);
}

void RingInteraction::deleteSearchCharacter()
{
    if (!m_query.isEmpty()) {
        filterNow(withoutLastCharacter(m_query));
    }
}

void RingInteraction::filterNow(const QString& text)
{
    pinForSearch();
    m_debounceTask.cancel();
    m_query = text;
    showMatches(text);
}

void RingInteraction::showMatches(const QString& text)
{
    m_debouncedQuery = text;
    m_selectedIndex = 0;
    refreshRing();
    Q_EMIT centerChanged();
}

void RingInteraction::editQuery(const QString& text)
{
    if (text == m_query) {
        return;
    }
    m_query = text;
    if (!text.isEmpty()) {
        pinForSearch();
    }
    m_debounceTask = m_dependencies.mainQueue.after(debounceSeconds, [this, text] {
        if (m_query == text) {
            showMatches(text);
        }
    });
    Q_EMIT centerChanged();
}

void RingInteraction::pinForSearch()
{
    if (m_dependencies.commands.pinForSearch) {
        m_dependencies.commands.pinForSearch();
    }
    m_isPinnedForSearch = true;
    m_launchHint.dismissLaunchHint();
}

void RingInteraction::showPinnedIndicator()
{
    m_isPinnedForSearch = true;
    Q_EMIT centerChanged();
}

} // namespace Tavik
