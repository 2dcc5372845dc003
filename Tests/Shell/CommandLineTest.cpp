// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/CommandLine.h>

#include <QTest>

using namespace Tavik;
using namespace Qt::StringLiterals;

class CommandLineTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void argumentsBecomeActions_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<AppAction>("action");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<bool>("answers");
        QTest::newRow("plain") << QStringList() << AppAction::activate << 0 << false;
        QTest::newRow("show") << QStringList{u"--show"_s} << AppAction::showLauncher << 0 << false;
        QTest::newRow("toggle") << QStringList{u"--toggle"_s} << AppAction::toggleLauncher << 0
                                << false;
        QTest::newRow("hide") << QStringList{u"--hide"_s} << AppAction::hideLauncher << 0 << false;
        QTest::newRow("quit") << QStringList{u"--quit"_s} << AppAction::quit << 0 << false;
        QTest::newRow("settings") << QStringList{u"--settings"_s} << AppAction::settings << 0
                                  << false;
        QTest::newRow("a section")
            << QStringList{u"--settings=theme"_s} << AppAction::settings << 0 << false;
        QTest::newRow("an argument too many")
            << QStringList{u"--quit=now"_s} << AppAction::activate << 2 << true;
        QTest::newRow("help") << QStringList{u"--help"_s} << AppAction::activate << 0 << true;
        QTest::newRow("version") << QStringList{u"--version"_s} << AppAction::activate << 0 << true;
        QTest::newRow("unknown") << QStringList{u"--shw"_s} << AppAction::activate << 2 << true;
        QTest::newRow("two options")
            << QStringList{u"--show"_s, u"--quit"_s} << AppAction::activate << 2 << true;
        QTest::newRow("a file") << QStringList{u"%1"_s} << AppAction::activate << 2 << true;
    }
    void argumentsBecomeActions()
    {
        QFETCH(QStringList, arguments);
        const CommandLine commandLine = CommandLine::parse(arguments);
        QTEST(commandLine.request.action, "action");
        QTEST(commandLine.exitCode, "exitCode");
        QTEST(commandLine.answer.has_value(), "answers");
    }

    void sectionIsTheSettingsArgument()
    {
        QCOMPARE(CommandLine::parse({u"--settings=theme"_s}).request.argument, u"theme"_s);
        QCOMPARE(CommandLine::parse({u"--settings"_s}).request.argument, QString());
    }
};

Q_DECLARE_METATYPE(Tavik::AppAction)

QTEST_APPLESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
