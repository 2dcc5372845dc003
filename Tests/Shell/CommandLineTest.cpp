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
        QTEST(commandLine.action, "action");
        QTEST(commandLine.exitCode, "exitCode");
        QTEST(commandLine.answer.has_value(), "answers");
    }
};

Q_DECLARE_METATYPE(Tavik::AppAction)

QTEST_APPLESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
