// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/LocalSocket.h>

#include <QFile>
#include <QTest>

#include <Support/FileTree.h>
#include <future>
#include <utility>

#include <sys/resource.h>
#include <unistd.h>

using namespace Tavik;
using namespace Tavik::Test;
using namespace Qt::StringLiterals;
using LocalQuestion::Outcome;

/// Both ends of a connection of this machine.
class LocalSocketTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_ends.clear();
        m_listener.onConnection = [this](FileDescriptor connection) {
            m_ends.push_back(std::make_unique<LocalSocket>(std::move(connection)));
        };
        QVERIFY(m_listener.listen(m_path));
    }

    void whatDoesNotFitIsSentLaterAndThenItCloses()
    {
        LocalSocket reader(m_path);
        QVERIFY(reader.isOpen());
        QByteArray received;
        bool isClosed = false;
        reader.onReceived = [&](const QByteArray& bytes) {
            received += bytes;
        };
        reader.onClosed = [&] {
            isClosed = true;
        };
        QTRY_COMPARE(m_ends.size(), 1U);
        QByteArray sent;
        for (int number = 0; sent.size() < 3'000'000; ++number) {
            sent += QByteArray::number(number);
        }
        m_ends.front()->send(sent.left(2'000'000));
        m_ends.front()->send(sent.mid(2'000'000));
        m_ends.front()->finish();
        QVERIFY(m_ends.front()->isOpen());
        QTRY_VERIFY(isClosed);
        QVERIFY(received == sent && !m_ends.front()->isOpen() && !reader.isOpen());
    }

    void whoeverReadsNothingIsGivenUp()
    {
        const LocalSocket mute(m_path);
        QTRY_COMPARE(m_ends.size(), 1U);
        m_ends.front()->onClosed = [this] {
            m_ends.clear(); // Which may be done there.
        };
        m_ends.front()->send(QByteArray(20'000'000, 'x'));
        QCOMPARE(m_ends.size(), 1U); // Not in the middle of the call.
        QTRY_VERIFY(m_ends.empty());
    }

    void whoeverComesWhileTooManyFilesAreOpenIsTakenLater()
    {
        const LocalSocket early(m_path);
        rlimit limit{};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        const rlim_t usual = std::exchange(limit.rlim_cur, FileDescriptor(::dup(0)).get());
        ::setrlimit(RLIMIT_NOFILE, &limit);
        QTest::qWait(50);
        const bool isTaken = !m_ends.empty();
        limit.rlim_cur = usual;
        ::setrlimit(RLIMIT_NOFILE, &limit);
        QVERIFY(early.isOpen() && !isTaken);
        QTRY_COMPARE(m_ends.size(), 1U);
        const LocalSocket late(m_path);
        QTRY_COMPARE(m_ends.size(), 2U);
    }

    void aQuestionIsAnsweredOrItIsSaidWhyNot()
    {
        m_listener.onConnection = [this](FileDescriptor connection) {
            LocalSocket& end
                = *m_ends.emplace_back(std::make_unique<LocalSocket>(std::move(connection)));
            end.onReceived = [&end, answers = m_ends.size() == 1](const QByteArray& bytes) {
                answers ? end.send("I, " + bytes) : end.close();
            };
        };
        for (const QByteArray& answer : {QByteArray("I, Who?"), QByteArray()}) {
            auto asked = std::async(std::launch::async,
                                    [this] { return LocalQuestion::ask(m_path, "Who?", 1, 5); });
            QTRY_VERIFY(asked.wait_for(std::chrono::seconds(0)) == std::future_status::ready);
            const auto [outcome, bytes] = asked.get();
            QCOMPARE(bytes, answer);
            QCOMPARE(outcome, answer.isEmpty() ? Outcome::nobody : Outcome::answered);
        }
        m_listener.close();
        QVERIFY(!QFile::exists(m_path));
        QCOMPARE(LocalQuestion::ask(m_path, "Who?", 1, 5).outcome, Outcome::nobody);
        QVERIFY(!m_listener.listen(m_tree.path(QString(200, u'x'))));
    }

private:
    const FileTree m_tree;
    const QString m_path = m_tree.write(u"socket"_s, "what lay there");
    LocalListener m_listener;
    std::vector<std::unique_ptr<LocalSocket>> m_ends;
};

QTEST_GUILESS_MAIN(LocalSocketTest)
#include "LocalSocketTest.moc"
