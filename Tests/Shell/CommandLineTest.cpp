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
};

QTEST_APPLESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
