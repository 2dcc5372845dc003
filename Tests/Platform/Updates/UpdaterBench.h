// SPDX-License-Identifier: MIT
#pragma once

#include "UpdateServer.h"
#include <TavikLauncherPlatform/Linux/Updates/AppcastUpdater.h>
#include <TavikLauncherPlatform/Linux/Updates/FetchProgram.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateStatement.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QTest>

#include <Support/FakeUpdateUserDriver.h>
#include <Support/FileTree.h>
#include <Support/MemoryUserDefaults.h>
#include <Support/StepWorkQueue.h>
#include <Support/VirtualMainQueue.h>
#include <sodium.h>

#include <sys/wait.h>

namespace Tavik::Test {

class FakeNetworkState final : public NetworkState
{
public:
    [[nodiscard]] bool isOnline() override { return online; }
    void set(bool isConnected)
    {
        online = isConnected;
        onChange();
    }

    bool online = true;
};

/// Signs as whoever makes the updates does.
class Signer
{
public:
    Signer()
    {
        if (::sodium_init() < 0) {
            qFatal("No signatures can be made.");
        }
        ::crypto_sign_keypair(bytes(publicKey), bytes(m_secretKey));
    }
    [[nodiscard]] QByteArray sign(const QByteArray& file) const
    {
        QByteArray signature(crypto_sign_BYTES, '\0');
        ::crypto_sign_detached(bytes(signature),
                               nullptr,
                               reinterpret_cast<const unsigned char*>(file.constData()),
                               static_cast<unsigned long long>(file.size()),
                               reinterpret_cast<const unsigned char*>(m_secretKey.constData()));
        return signature.toBase64();
    }

    QByteArray publicKey{crypto_sign_PUBLICKEYBYTES, '\0'};

private:
    static unsigned char* bytes(QByteArray& array)
    {
        return reinterpret_cast<unsigned char*>(array.data());
    }

    QByteArray m_secretKey{crypto_sign_SECRETKEYBYTES, '\0'};
};

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
            // A process that is still starting does not know of the clock that is turned.
            const bool isStarting = isFetching() && server.requests.size() == m_requestsBefore;
            m_requestsBefore = isFetching() ? m_requestsBefore : server.requests.size();
            mainQueue.advance(isStarting ? qMin(secondsPerTurn, 0.002) : secondsPerTurn);
        }
        return true;
    }
    /// Whether there is a process that fetches.
    [[nodiscard]] static bool isFetching()
    {
        siginfo_t information{};
        return ::waitid(P_ALL, 0, &information, WEXITED | WNOHANG | WNOWAIT) == 0;
    }

    [[nodiscard]] UpdateTransfer::Dependencies transfer()
    {
        return {
            .mainQueue = mainQueue, .fetchProgram = fetchProgram, .userAgent = "TavikLauncher/2.0"};
    }

    /// The usual one, which trusts the server when it is told to.
    const QString fetchProgram = QStringLiteral(TAVIK_TEST_FETCH_PROGRAM);
    UpdateServer server;
    FileTree tree;
    VirtualMainQueue mainQueue;
    StepWorkQueue workQueue;

private:
    qsizetype m_requestsBefore = 0; ///< The present process.
};

/// An updater of version 2.0 with everything around it.
struct UpdaterBench : UpdateFixture
{
    /// An image for the usual computer.
    [[nodiscard]] static QByteArray image(const QByteArray& mark)
    {
        // Made a second after 1970.
        return program() + QByteArray("hsqs\0\0\0\0\1\0\0\0", 12) + mark;
    }
    /// What lies before an image's file system.
    [[nodiscard]] static QByteArray program(bool isWide = true)
    {
        QByteArray bytes("\x7f\x45LF\2\1\1\0AI\2\0\0\0\0\0\2\0\x3e\0", 20);
        bytes = bytes.leftJustified(isWide ? 64 : 52, '\0');
        bytes[4] = isWide ? 2 : 1;
        bytes[isWide ? 40 : 32] = char(bytes.size()); // Where the program ends.
        return bytes;
    }

    /// What the feed says of one version.
    struct Item
    {
        QByteArray version = "2.1";
        QByteArray path = "/new.AppImage";
        QByteArray file = image("new");
        QByteArray signature; ///< Empty: that of `file`.
        QByteArray more; ///< Elements.
    };

    /// The enclosure of an item, with everything that is signed.
    [[nodiscard]] QByteArray enclosure(const Item& item) const
    {
        const QByteArray signature
            = item.signature.isEmpty() ? signer.sign(item.file) : item.signature;
        const QByteArray digest = QCryptographicHash::hash(item.file, QCryptographicHash::Sha256);
        const UpdateStatement statement{
            .version = QString::fromLatin1(item.version),
            .length = item.file.size(),
            .kind = updateKindName({.url = QUrl(QString::fromLatin1(item.path))}),
            .processor = QStringLiteral("any"),
            .digest = digest};
        return "<enclosure url=\"" + item.path + "\" length=\""
            + QByteArray::number(item.file.size()) + "\" s:edSignature=\"" + signature
            + "\" t:processor=\"any\" t:sha256=\"" + digest.toHex() + "\" t:statement=\""
            + signer.sign(statement.text()) + "\"/>";
    }

    /// Serves a feed with that version, and its file.
    void offer(const Item& item)
    {
        const QByteArray feed
            = "<rss xmlns:s=\"http://www.andymatuschak.org/xml-namespaces/sparkle\" "
              "xmlns:t=\"urn:tavik-launcher:feed\"><channel><item><s:version>"
            + item.version + "</s:version>" + (item.path.isEmpty() ? QByteArray() : enclosure(item))
            + item.more + "</item></channel></rss>";
        server.answer("/feed", {UpdateServer::file(feed, "application/rss+xml")});
        server.answer(item.path, {UpdateServer::file(item.file, "application/octet-stream")});
    }

    /// Starts the program, so to speak; what ran before is gone.
    AppcastUpdater& start()
    {
        updater.reset();
        driver.calls.clear();
        auto state = std::make_unique<FakeNetworkState>();
        state->online = isOnline;
        network = state.get();
        updater = std::make_unique<AppcastUpdater>(AppcastUpdater::Dependencies{
            .userDefaults = defaults,
            .networkState = std::move(state),
            .random = [] { return 0.0; },
            .environment = {.mainQueue = mainQueue,
                            .workQueue = workQueue,
                            .feedUrl = feedUrl.isEmpty() ? server.url("/feed") : feedUrl,
                            .publicKey = signer.publicKey,
                            .fetchProgram = fetchProgram,
                            .version = QStringLiteral("2.0"),
                            .processor = QStringLiteral("x86_64"),
                            .pageHosts = {QStringLiteral("localhost")},
                            .image = runsFromImage ? imagePath : QString(),
                            .folder = tree.path(QStringLiteral("cache/Updates")),
                            .wallClock = [this] { return now(); },
                            .hasInstaller = [this](const QString&) { return hasInstaller; },
                            .open =
                                [this](const QUrl& url) {
                                    opened << url;
                                    return openFault;
                                }}});
        updater->onTerminate = [this] {
            driver.calls << QStringLiteral("terminate");
        };
        updater->startUpdater(driver);
        return *updater;
    }
    /// The user asks, and all answers are given until the session is over.
    [[nodiscard]] bool checkToTheEnd(double secondsPerTurn = 0.02)
    {
        driver.calls.clear();
        updater->checkForUpdates();
        return play([this] { return driver.calls.contains(QStringLiteral("over")); },
                    secondsPerTurn);
    }
    /// Nothing but that image is anywhere.
    [[nodiscard]] bool isClean(const QByteArray& expected)
    {
        workQueue.runAll(); // What is removed is removed there.
        return FileTree::contents(imagePath) == expected
            && FileTree::names(tree.path(QStringLiteral("apps")))
            == QStringList{QStringLiteral("my.AppImage")}
        && FileTree::names(tree.path(QStringLiteral("cache/Updates"))).isEmpty();
    }
    [[nodiscard]] bool playUntil(const QString& call)
    {
        return play([this, call] { return driver.calls.contains(call); });
    }
    [[nodiscard]] QDateTime now() const
    {
        return epoch.addMSecs(qRound64(1000 * (mainQueue.systemUptime() + secondsAsleep)));
    }
    [[nodiscard]] qsizetype feedRequests() const
    {
        return std::ranges::count(server.requests, "/feed", &UpdateServer::Request::path);
    }

    const QDateTime epoch{QDate(2026, 3, 1), QTime(), Qt::UTC};
    const Signer signer;
    MemoryUserDefaults defaults;
    FakeUpdateUserDriver driver;
    QUrl feedUrl; ///< Empty: the one of `server`.
    double secondsAsleep = 0; ///< The wall clock went on, the queue's did not.
    bool isOnline = true;
    bool hasInstaller = true;
    bool runsFromImage = true;
    std::optional<QString> openFault;
    QList<QUrl> opened;
    const QString imagePath = tree.write(QStringLiteral("apps/my.AppImage"), image("old"));
    FakeNetworkState* network = nullptr;
    std::unique_ptr<AppcastUpdater> updater;
};

} // namespace Tavik::Test
