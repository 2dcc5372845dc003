// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/FetchMessages.h>
#include <TavikLauncherPlatform/Linux/Updates/FetchProgram.h>

#include <QCoreApplication>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <array>
#include <cerrno>
#include <csignal>
#include <exception>

#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace Tavik::FetchProgram {

using namespace Qt::StringLiterals;

namespace {

constexpr int success = 0;
constexpr int failure = 2;
constexpr qint64 readBufferBytes = 128LL * 1024;
static_assert(readBufferBytes < FetchMessages::mostBytes);
/// What a feed or a package needs is a tenth of it, the rest is for what the toolkit loads.
constexpr qint64 mostGrowth = 60'000'000;

/// What this process may write to, in bytes, as the limit below counts it.
qint64 dataBytes()
{
    QFile statistics(u"/proc/self/statm"_s);
    constexpr int dataField = 5;
    return statistics.open(QIODevice::ReadOnly)
        ? statistics.readLine().split(' ').value(dataField).toLongLong() * ::sysconf(_SC_PAGESIZE)
        : 0;
}

/// The toolkit gathers much of what a server says without a limit or a word: the head, what stands
/// between the pieces of a body, and the whole body of some refusals.
void limitMemory()
{
    const auto most = static_cast<rlim_t>(dataBytes() + mostGrowth);
    const rlimit memory{.rlim_cur = most, .rlim_max = most};
    ::setrlimit(RLIMIT_DATA, &memory);
    const rlimit noCore{.rlim_cur = 0, .rlim_max = 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    // Nothing throws here but what finds no memory.
    std::set_terminate([] { ::_exit(outOfMemory); });
}

/// Waits where whoever reads is slower. When nobody is left to read, the signal ends this process.
void send(const QByteArray& message)
{
    const char* next = message.constData();
    const char* const end = next + message.size();
    while (next != end) {
        const ssize_t count = ::write(connection, next, static_cast<std::size_t>(end - next));
        if (count < 0 && errno != EINTR) {
            ::_exit(failure);
        }
        next += qMax<ssize_t>(count, 0);
    }
}

std::optional<FetchRequest> readRequest()
{
    QByteArray received;
    std::array<char, 4096> piece{};
    while (true) {
        if (const std::optional<FetchMessages::Message> message = FetchMessages::take(received)) {
            return FetchMessages::request(*message);
        }
        const ssize_t count = ::read(connection, piece.data(), piece.size());
        if (count <= 0) {
            return std::nullopt;
        }
        received.append(piece.data(), count);
    }
}

QNetworkRequest networkRequest(const FetchRequest& asked)
{
    using enum QNetworkRequest::Attribute;
    QNetworkRequest request(asked.url);
    request.setAttribute(RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(CacheSaveControlAttribute, false);
    request.setAttribute(Http2AllowedAttribute, false);
    request.setRawHeader("User-Agent", asked.userAgent);
    // Left alone, the toolkit would tell the user's languages, and unpack whatever comes.
    request.setRawHeader("Accept-Language", "en");
    request.setRawHeader("Accept-Encoding", "identity");
    if (asked.startsAt > 0) {
        request.setRawHeader("Range", "bytes=" + QByteArray::number(asked.startsAt) + '-');
        request.setRawHeader("If-Range", asked.validator);
    }
    return request;
}

QNetworkProxy proxyFor(const QUrl& url)
{
    if (url.scheme() == u"http") { // This machine.
        return QNetworkProxy::NoProxy;
    }
    // This may take the system seconds; nobody else waits here.
    return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url))
        .value(0, QNetworkProxy::NoProxy);
}

FetchAnswer answerOf(const QNetworkReply& reply)
{
    FetchAnswer answer{.status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(),
                       .redirection
                       = reply.attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl(),
                       .contentType = reply.rawHeader("Content-Type"),
                       .contentEncoding = reply.rawHeader("Content-Encoding"),
                       .contentRange = reply.rawHeader("Content-Range"),
                       .tag = reply.rawHeader("ETag"),
                       .lastModified = reply.rawHeader("Last-Modified")};
    const QVariant length = reply.header(QNetworkRequest::ContentLengthHeader);
    if (length.isValid()) {
        answer.length = length.toLongLong();
    }
    return answer;
}

FetchEnd endOf(QNetworkReply::NetworkError error, bool hasBadCertificate)
{
    switch (error) {
    case QNetworkReply::NoError:
        return FetchEnd::complete;
    case QNetworkReply::HostNotFoundError:
        return FetchEnd::noSuchHost;
    case QNetworkReply::ConnectionRefusedError:
        return FetchEnd::noConnection;
    case QNetworkReply::SslHandshakeFailedError:
        return hasBadCertificate ? FetchEnd::badCertificate : FetchEnd::noProtection;
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return FetchEnd::refusedByProxy;
    default:
        return FetchEnd::brokenOff;
    }
}

/// One answer of a server, told as it comes.
class Telling
{
public:
    explicit Telling(QNetworkReply& reply)
        : m_reply(reply)
    {
        m_reply.setReadBufferSize(readBufferBytes);
        QObject::connect(
            &m_reply, &QNetworkReply::sslErrors, &m_reply, [this] { m_hasBadCertificate = true; });
        QObject::connect(
            &m_reply, &QNetworkReply::metaDataChanged, &m_reply, [this] { tellHead(); });
        QObject::connect(&m_reply, &QNetworkReply::readyRead, &m_reply, [this] { tellBody(); });
        QObject::connect(&m_reply, &QNetworkReply::finished, &m_reply, [this] { tellEnd(); });
    }

private:
    void tellHead()
    {
        const FetchAnswer answer = answerOf(m_reply);
        if (!m_hasHead && answer.status != 0) {
            m_hasHead = true;
            send(FetchMessages::pack(answer));
        }
    }
    void tellBody()
    {
        while (m_hasHead && m_reply.bytesAvailable() > 0) {
            send(FetchMessages::packBytes(m_reply.read(readBufferBytes)));
        }
    }
    void tellEnd()
    {
        tellHead();
        tellBody();
        send(FetchMessages::pack(endOf(m_reply.error(), m_hasBadCertificate)));
        QCoreApplication::quit();
    }

    QNetworkReply& m_reply;
    bool m_hasHead = false;
    bool m_hasBadCertificate = false;
};

} // namespace

int run(int argc, char** argv)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::close_range(STDERR_FILENO + 1, ~0U, 0);
    const std::optional<FetchRequest> request = readRequest();
    if (!request || request->parent != ::getppid()) {
        return failure;
    }
    // The other kind of event loop ends the process in its own way where there is no memory.
    qputenv("QT_NO_GLIB", "1");
    if (isLimited) {
        limitMemory();
    }
    const QCoreApplication application(argc, argv);
    QNetworkAccessManager manager;
    manager.setProxy(proxyFor(request->url));
    const Telling telling(*manager.get(networkRequest(*request)));
    return QCoreApplication::exec() == 0 ? success : failure;
}

} // namespace Tavik::FetchProgram
