// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Ring/HoverEngagement.h>
#include <TavikLauncher/Ring/LaunchHintDisplay.h>
#include <TavikLauncher/Ring/OutsideApps.h>
#include <TavikLauncher/Ring/RingComposition.h>
#include <TavikLauncherPlatform/MainQueue.h>
#include <TavikLauncherPlatform/NotificationCenter.h>

#include <QObject>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

namespace Tavik {

class AppLauncher;
class FileManager;
class LauncherPresentationState;
class WorkQueue;
struct LauncherCommands;
struct RingGeometry;

/// The ring's state and what the user can do with it: selection, hover, filter, launch hint,
/// launch. It knows no widget; a view paints it and forwards the pointer. Main thread only.
class RingInteraction final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        AppCatalog& catalog;
        AppLauncher& launcher;
        LauncherSettings& settings;
        RecentAppsStore& recents;
        Workspace& workspace;
        FileManager& fileManager;
        LauncherCommands& commands;
        LauncherPresentationState& presentation;
        MainQueue& mainQueue;
        WorkQueue& workQueue;
    };

    RingInteraction(const Dependencies& dependencies,
                    QString ownIdentifier,
                    std::function<void()> onClose);
    ~RingInteraction() override;

    /// Current ring, slot 0 first.
    [[nodiscard]] const QList<IndexedApp>& ringApps() const { return m_ringApps; }
    [[nodiscard]] int selectedIndex() const { return m_selectedIndex; }
    [[nodiscard]] const QString& query() const { return m_query; }
    [[nodiscard]] const QString& debouncedQuery() const { return m_debouncedQuery; }
    /// The text that filters the ring is more than blanks.
    [[nodiscard]] bool isFiltering() const { return !m_query.trimmed().isEmpty(); }
    /// The angle of the highlight in degrees; not normalised into one turn.
    [[nodiscard]] double highlightedAngleDegrees() const { return m_highlightedAngleDegrees; }
    [[nodiscard]] bool showsSelectionLabel() const { return m_showsSelectionLabel; }
    [[nodiscard]] bool isPinnedForSearch() const { return m_isPinnedForSearch; }
    [[nodiscard]] const std::optional<QString>& launchHint() const
    {
        return m_launchHint.launchHint();
    }
    [[nodiscard]] bool hasActiveSelection() const { return m_showsSelectionLabel || isFiltering(); }
    [[nodiscard]] bool isRunning(const IndexedApp& app) const { return m_running.contains(app); }
    /// It has been asked to start and has shown no window yet.
    [[nodiscard]] bool isStarting(const IndexedApp& app) const
    {
        return m_starting.contains(app.path()) && !isRunning(app);
    }
    [[nodiscard]] bool isIndexing() const;

    /// The ring comes into being: fills the command table and starts to follow the workspace.
    void appear();
    /// The ring is torn down: empties the command table but for `pinForSearch`.
    void disappear();
    /// Resets everything transient before the panel shows. A summon by the user asks for a launch
    /// hint, anything else dismisses the one shown.
    void prepareForShow(bool isUserSummon);
    void refreshRing();

    /// The pointer is at `point` of the ring's drawing area, laid out as `geometry`.
    void hoverAt(QPointF point, const RingGeometry& geometry);
    void updateSelectedIndex(int index);
    /// A click on a slot: selects and launches it.
    void clickSlot(int index);

    void moveSelectionLeft();
    void moveSelectionRight();
    void launchSelected();
    /// Launches slot `digit` − 1; ignored beyond the ring.
    void quickLaunch(int digit);
    void insertSearchText(const QString& text);
    void deleteSearchCharacter();
    /// The filter field was edited past the panel's keys (an input method): filters after a pause.
    void editQuery(const QString& text);

Q_SIGNALS:
    /// The slots, who runs, or their order changed.
    void ringChanged();
    /// The selection moved to another slot; `animated` tells whether the highlight sweeps there.
    void highlightMoved(bool animated);
    /// A text of the centre, or the condition for one, changed.
    void centerChanged();

private:
    void fillCommands();
    void installObservers();
    void installWorkspaceObservers();
    void outsideChanged();
    void updateHighlightedAngle(int index, bool animated);
    void moveSelection(int step);
    void select(int index);
    void showPinnedIndicator();
    void pinForSearch();
    void filterNow(const QString& text);
    void showMatches(const QString& text);

    Dependencies m_dependencies;
    OutsideApps m_outside;
    RingComposition m_composition;
    std::function<void()> m_onClose;

    QString m_query;
    QString m_debouncedQuery;
    Task m_debounceTask;
    int m_selectedIndex = 0;
    QList<IndexedApp> m_ringApps;
    RingComposition::RunningSets m_running;
    QStringList m_starting; ///< Paths.
    std::vector<ObserverToken> m_workspaceObservers;
    bool m_isPinnedForSearch = false;
    bool m_showsSelectionLabel = false;
    HoverEngagement m_hover;
    double m_highlightedAngleDegrees = -90;
    LaunchHintDisplay m_launchHint;
};

} // namespace Tavik
