// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/CommandLine.h>

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;

class CommandLineTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void argumentsBecomeRequests_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<AppAction>("action");
        QTest::addColumn<QString>("section");
        const auto row = [](const char* name,
                            const QStringList& arguments,
                            AppAction action,
                            const QString& section = {}) {
            QTest::newRow(name) << arguments << action << section;
        };
        row("plain", {}, AppAction::activate);
        row("show", {u"--show"_s}, AppAction::showLauncher);
        row("toggle", {u"--toggle"_s}, AppAction::toggleLauncher);
        row("hide", {u"--hide"_s}, AppAction::hideLauncher);
        row("settings", {u"--settings"_s}, AppAction::settings);
        row("a section", {u"--settings=permanentApps"_s}, AppAction::settings, u"permanentApps"_s);
        row("reindex", {u"--reindex"_s}, AppAction::reindex);
        row("tour", {u"--tour"_s}, AppAction::tour);
        row("updates", {u"--check-for-updates"_s}, AppAction::checkForUpdates);
        row("quit", {u"--quit"_s}, AppAction::quit);
    }
    void argumentsBecomeRequests()
    {
        QFETCH(QStringList, arguments);
        const CommandLine commandLine = CommandLine::parse(arguments);
        QTEST(commandLine.request.action, "action");
        QTEST(commandLine.request.argument, "section");
        QCOMPARE(commandLine.starter, CommandLine::Starter::user);
        QVERIFY(!commandLine.answer);
        QCOMPARE(commandLine.exitCode, 0);
    }

    void whatCannotBeUnderstoodIsRefusedWithAReason_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("firstLine");
        QTest::newRow("unknown") << QStringList{u"--shw"_s} << u"unknown option --shw"_s;
        QTest::newRow("a pattern") << QStringList{u"%1"_s} << u"unknown option %1"_s;
        QTest::newRow("empty") << QStringList{QString()} << u"unknown option "_s;
        QTest::newRow("two") << QStringList{u"--show"_s, u"--quit"_s} << u"one option at a time"_s;
        QTest::newRow("a value") << QStringList{u"--quit=now"_s} << u"--quit takes no value"_s;
        QTest::newRow("no section")
            << QStringList{u"--settings=%1"_s}
            << u"the settings have no section \"%1\"; there are general, shortcut, appearance, "
               u"theme, permanentApps, hints, updates, backup, about"_s;
        QTest::newRow("an empty section")
            << QStringList{u"--settings="_s}
            << u"the settings have no section \"\"; there are general, shortcut, appearance, "
               u"theme, permanentApps, hints, updates, backup, about"_s;
    }
    void whatCannotBeUnderstoodIsRefusedWithAReason()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, firstLine);
        const CommandLine commandLine = CommandLine::parse(arguments);
        QCOMPARE(commandLine.exitCode, 2);
        QVERIFY(commandLine.answer);
        QCOMPARE(commandLine.answer->section(u'\n', 0, 0), u"tavik-launcher: "_s + firstLine);
        QVERIFY(commandLine.answer->contains(u"Usage: "));
    }

    void questionsAreAnswered()
    {
        QVERIFY(CommandLine::parse({u"--version"_s}).answer->startsWith(u"tavik-launcher 0."));
        for (const QString& question : {u"--help"_s, u"-h"_s}) {
            const CommandLine help = CommandLine::parse({question});
            QVERIFY(help.answer->startsWith(u"Usage: "));
            QCOMPARE(help.exitCode, 0);
        }
    }

    void aStartNobodyLooksForIsToldFromOthers()
    {
        using Starter = CommandLine::Starter;
        QCOMPARE(CommandLine::parse({u"--background"_s}).starter, Starter::login);
        QCOMPARE(CommandLine::parse({u"--dbus-service"_s}).starter, Starter::bus);
    }
};

Q_DECLARE_METATYPE(Tavik::AppAction)

QTEST_APPLESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
