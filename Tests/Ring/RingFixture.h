// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncher/Catalog/AppCatalog.h>
#include <TavikLauncher/Catalog/AppLauncher.h>
#include <TavikLauncher/Catalog/RecentAppsStore.h>
#include <TavikLauncher/Ring/LauncherCommands.h>
#include <TavikLauncher/Ring/LauncherPresentationState.h>
#include <TavikLauncher/Ring/RingInteraction.h>
#include <TavikLauncher/Settings/LauncherSettings.h>

#include <QTemporaryDir>

#include <Support/AppNames.h>
#include <Support/FakeFileManager.h>
#include <Support/FakeLoginItem.h>
#include <Support/FakeWorkspace.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/StepWorkQueue.h>
#include <Support/VirtualMainQueue.h>

namespace Tavik::Test {

using namespace Qt::StringLiterals;

/// A desktop of fakes around a ring: five catalogued applications named A to E, nothing running.
struct RingFixture
{
    RingFixture()
    {
        fileManager.support.path = home.path();
        for (const QString& name : all.split(u' ')) {
            install(path(name), name);
        }
        workspace.paths.insert(ownIdentifier, ownPath);
        walk();
    }

    [[nodiscard]] static QString path(const QString& name)
    {
        return u"/apps/%1.desktop"_s.arg(name);
    }
    /// Of several names with blanks between them.
    [[nodiscard]] static QStringList paths(const QString& names)
    {
        QStringList paths;
        for (const QString& name : names.split(u' ')) {
            paths << path(name);
        }
        return paths;
    }

    /// Puts an application on the disk; it is catalogued at the next `walk`.
    void install(const QString& path, const QString& name)
    {
        Bundle bundle;
        bundle.kind = Bundle::Kind::desktopEntry;
        bundle.name = name;
        bundle.identifier = u"id."_s + name;
        fileManager.bundles.insert(path, bundle);
        fileManager.items[folder] << DirectoryItem{.path = path};
    }
    void walk()
    {
        catalog.reindex();
        workQueue.runAll();
    }

    void launch(const QString& names)
    {
        for (const QString& name : names.split(u' ')) {
            workspace.launch(path(name), u"id."_s + name);
        }
    }
    void pin(const QStringList& paths)
    {
        settings.permanentAppPaths.set(paths);
        settings.pinnedPermanentAppPaths.set(paths);
    }
    [[nodiscard]] RingInteraction::Dependencies ringDependencies()
    {
        return {catalog,
                launcher,
                settings,
                recents,
                workspace,
                fileManager,
                commands,
                presentation,
                mainQueue,
                workQueue};
    }

    const QString all = u"A B C D E"_s;
    QTemporaryDir home;
    QString folder = u"/apps"_s;
    MemoryUserDefaults defaults;
    FakeLoginItem loginItem;
    NotificationCenter notifications;
    FakeFileManager fileManager;
    FakeWorkspace workspace;
    VirtualMainQueue mainQueue;
    StepWorkQueue workQueue;
    LauncherSettings settings{defaults, loginItem, notifications};
    RecentAppsStore recents{defaults};
    AppCatalog catalog{{fileManager, workQueue, mainQueue}, {u"/apps"_s}};
    AppLauncher launcher{workspace, recents};
    LauncherCommands commands;
    LauncherPresentationState presentation;
    QString ownIdentifier = u"org.tavik.Launcher"_s;
    QString ownPath = u"/apps/own.desktop"_s;
};

inline QString names(const QList<IndexedApp>& apps)
{
    return namesOf(apps).join(u' ');
}

} // namespace Tavik::Test
