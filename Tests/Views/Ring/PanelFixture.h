// SPDX-License-Identifier: MIT
#pragma once

#include "../../Ring/RingFixture.h"
#include <TavikLauncher/Views/Ring/FilterField.h>
#include <TavikLauncher/Views/Ring/LauncherPanel.h>
#include <TavikLauncher/Views/Ring/RadialLauncherView.h>

#include <Support/Counting.h>
#include <Support/FakeDesktop.h>
#include <Support/FakeKeyEvents.h>
#include <Support/FakeWindowServer.h>
#include <memory>

namespace Tavik::Test {

using namespace Qt::StringLiterals;

/// The real panel with the real ring over a desktop of fakes. Applications A to E run; their icons
/// are red squares. `showRing` brings the ring up at rest.
struct PanelFixture : RingFixture
{
    PanelFixture()
    {
        for (Bundle& bundle : fileManager.bundles) {
            bundle.iconSource = u"red"_s;
        }
        walk();
        settings.showsLaunchHints.set(false);
        launch(all);
        auto view = std::make_unique<RadialLauncherView>(RadialLauncherView::Dependencies{
            .ring = ringDependencies(),
            .ownIdentifier = ownIdentifier,
            .iconDecoder = icons,
            .windowServer = windowServer,
            .appearance = appearance,
            .onClose = [this] { ++closes; },
            .onFillRing = [this] { ++fills; },
        });
        panel = std::make_unique<LauncherPanel>(
            LauncherPanel::Dependencies{commands, windowServer, keyEvents}, std::move(view));
        commands.close = counting(closes);
        settle();
    }

    [[nodiscard]] RadialLauncherView& ring() { return panel->ring(); }
    /// Lets everything in the background finish.
    void settle()
    {
        workQueue.runAll();
        mainQueue.advance(1);
        workQueue.runAll();
    }
    void showRing()
    {
        const double side = RingGeometry::panelSide(settings.ringDiameter());
        commands.prepareForShow(true);
        panel->setFrame(QRectF(100, 100, side, side));
        panel->activateApplication();
        panel->makeKeyAndOrderFront();
        settle();
    }
    /// A point of the band, in the panel's plane, in the middle of a slot.
    [[nodiscard]] QPoint slotPoint(int slot) { return ring().slotRect(slot).center(); }

    ColorIconDecoder icons;
    FakeWindowServer windowServer;
    FakeKeyEvents keyEvents;
    FakeAppearance appearance;
    int closes = 0;
    int fills = 0; ///< Times that the way to fill an empty ring was taken.
    std::unique_ptr<LauncherPanel> panel;
};

struct ShownPanel : PanelFixture
{
    ShownPanel() { showRing(); }
};

} // namespace Tavik::Test
