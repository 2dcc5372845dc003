// SPDX-License-Identifier: MIT
#pragma once

#include "UpdateServer.h"
#include <TavikLauncherPlatform/Linux/Updates/UpdateTransfer.h>

#include <QCoreApplication>
#include <QDir>
#include <QTest>

#include <Support/FileTree.h>
#include <Support/StepWorkQueue.h>
#include <Support/VirtualMainQueue.h>

namespace Tavik::Test {

/// A server, a folder, and two clocks: the network runs on the real one, and whatever waits on one
/// that goes as far as the test lets it.
struct UpdateFixture
{
    /// Lets everything happen until the condition holds. Fails after ten seconds of the real clock.
    template <typename Condition>
    [[nodiscard]] bool play(Condition condition, double secondsPerTurn = 0.002)
    {
        QDeadlineTimer patience(10'000);
        while (!condition()) {
            if (patience.hasExpired()) {
                return false;
            }
            QTest::qWait(1);
            workQueue.runAll();
            mainQueue.advance(secondsPerTurn);
        }
        return true;
    }

    [[nodiscard]] UpdateTransfer::Dependencies transfer()
    {
        return {.mainQueue = mainQueue, .workQueue = workQueue, .userAgent = "TavikLauncher/2.0"};
    }

    /// What lies in a folder, hidden files included.
    [[nodiscard]] static QStringList files(const QString& folder)
    {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                      | QDir::NoDotAndDotDot);
    }

    [[nodiscard]] static QByteArray contents(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    UpdateServer server;
    FileTree tree;
    VirtualMainQueue mainQueue;
    StepWorkQueue workQueue;
};

} // namespace Tavik::Test
