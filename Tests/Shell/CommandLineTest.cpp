// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/CommandLine.h>

#include <QTest>

#include <Support/Table.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;

class CommandLineTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void argumentsBecomeRequests_data()
    {
        const Table<QStringList, AppAction, QString> row;
        row("plain", {}, AppAction::activate, {});
        row("show", {u"--show"_s}, AppAction::showLauncher, {});
        row("toggle", {u"--toggle"_s}, AppAction::toggleLauncher, {});
        row("hide", {u"--hide"_s}, AppAction::hideLauncher, {});
        row("settings", {u"--settings"_s}, AppAction::settings, {});
        row("a section", {u"--settings=permanentApps"_s}, AppAction::settings, u"permanentApps"_s);
        row("reindex", {u"--reindex"_s}, AppAction::reindex, {});
        row("tour", {u"--tour"_s}, AppAction::tour, {});
        row("updates", {u"--check-for-updates"_s}, AppAction::checkForUpdates, {});
        row("quit", {u"--quit"_s}, AppAction::quit, {});
    }
    void argumentsBecomeRequests()
    {
        const auto [arguments, action, section] = fetch<QStringList, AppAction, QString>();
        const CommandLine commandLine = CommandLine::parse(arguments);
        QCOMPARE(commandLine.request.action, action);
        QCOMPARE(commandLine.request.argument, section);
        QCOMPARE(commandLine.starter, CommandLine::Starter::user);
        QVERIFY(!commandLine.answer);
        QCOMPARE(commandLine.exitCode, 0);
    }

    void whatCannotBeUnderstoodIsRefusedWithAReason_data()
    {
        const Table<QStringList, QString> row;
        row("unknown", {u"--shw"_s}, u"unknown option --shw"_s);
        row("a pattern", {u"%1"_s}, u"unknown option %1"_s);
        row("empty", {QString()}, u"unknown option "_s);
        row("two", {u"--show"_s, u"--quit"_s}, u"one option at a time"_s);
        row("a value", {u"--quit=now"_s}, u"--quit takes no value"_s);
        const QString sections
            = u"the settings have no section \"%1\"; there are general, shortcut, "
              u"appearance, theme, permanentApps, hints, updates, backup, about"_s;
        row("no section", {u"--settings=%1"_s}, sections);
        row("an empty section", {u"--settings="_s}, sections.arg(QString()));
    }
    void whatCannotBeUnderstoodIsRefusedWithAReason()
    {
        const auto [arguments, firstLine] = fetch<QStringList, QString>();
        const CommandLine commandLine = CommandLine::parse(arguments);
        QCOMPARE(commandLine.exitCode, 2);
        QVERIFY(commandLine.answer);
        QCOMPARE(commandLine.answer->section(u'\n', 0, 0), u"tavik-launcher: "_s + firstLine);
        QVERIFY(commandLine.answer->contains(u"Usage: "));
    }

    void questionsAreAnsweredAndStartersToldApart()
    {
        QVERIFY(CommandLine::parse({u"--version"_s}).answer->startsWith(u"tavik-launcher 0."));
        for (const QString& question : {u"--help"_s, u"-h"_s}) {
            const CommandLine help = CommandLine::parse({question});
            QVERIFY(help.answer->startsWith(u"Usage: "));
            QCOMPARE(help.exitCode, 0);
        }
        using Starter = CommandLine::Starter;
        QCOMPARE(CommandLine::parse({u"--background"_s}).starter, Starter::login);
        QCOMPARE(CommandLine::parse({u"--dbus-service"_s}).starter, Starter::bus);
    }
};

QTEST_APPLESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
