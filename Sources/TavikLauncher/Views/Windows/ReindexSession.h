// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Ring/Spring.h>
#include <TavikLauncherPlatform/MainQueue.h>

#include <QObject>

#include <functional>

namespace Tavik {

class AppCatalog;
class DesktopAppearance;

/// The course of one re-index window: explains, runs, celebrates. Walks that were started elsewhere
/// do not change it, unless the user has asked for one here.
class ReindexSession final : public QObject
{
    Q_OBJECT

public:
    enum class Phase {
        info,
        running,
        success,
    };
    struct Dependencies
    {
        AppCatalog& catalog;
        MainQueue& mainQueue;
        DesktopAppearance& appearance;
    };

    ReindexSession(const Dependencies& dependencies,
                   std::function<void()> onCelebrate,
                   QObject* parent = nullptr);

    /// Starts a walk, or joins the one that is running.
    void reindexNow();

    [[nodiscard]] Phase phase() const { return m_phase; }
    /// True once the success is being celebrated.
    [[nodiscard]] bool celebrates() const { return m_celebrates; }
    /// How many applications the catalog holds now.
    [[nodiscard]] qsizetype indexedCount() const;
    /// At what scale the mark of success is drawn.
    [[nodiscard]] double markScale() const { return m_markScale.value; }

Q_SIGNALS:
    void phaseChanged();
    void indexedCountChanged();
    void markScaleChanged();

private:
    void walkChanged();
    void celebrate();
    void stepMark();

    Dependencies m_dependencies;
    std::function<void()> m_onCelebrate;
    Phase m_phase = Phase::info;
    bool m_startedByThisWindow = false;
    bool m_celebrates = false;
    Spring m_markScale;
    double m_lastFrame = 0;
    Task m_celebration;
    Task m_frames;
};

} // namespace Tavik
