// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateTransfer.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QList>
#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QPointer>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirects = 5;
constexpr qint64 readBufferBytes = 256LL * 1024;
constexpr int statusOk = 200;
constexpr int statusPartialContent = 206;
constexpr int statusNotFound = 404;
constexpr int statusGone = 410;
constexpr int statusRangeNotSatisfiable = 416;
constexpr int firstServerError = 500;
constexpr qint64 bytesPerMegabyte = 1'000'000;

bool isPlain(const QUrl& url)
{
    return url.scheme() == u"http"_s;
}

int statusOf(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

/// Only what stands for one exact sequence of bytes; weak tags do not.
QByteArray validatorOf(const QNetworkReply& reply)
{
    const QByteArray tag = reply.rawHeader("ETag");
    return tag.startsWith('"') ? tag : reply.rawHeader("Last-Modified");
}

struct ContentRange
{
    qint64 first = 0;
    std::optional<qint64> length;
};

/// Reads "bytes 100-199/200".
std::optional<ContentRange> contentRange(const QByteArray& header)
{
    const QByteArray text = header.simplified();
    const qsizetype dash = text.indexOf('-');
    const qsizetype slash = text.indexOf('/');
    if (!text.startsWith("bytes ") || dash < 0 || slash < dash) {
        return std::nullopt;
    }
    constexpr qsizetype unit = 6;
    bool isNumber = false;
    ContentRange range{.first = text.mid(unit, dash - unit).toLongLong(&isNumber)};
    if (!isNumber || range.first < 0) {
        return std::nullopt;
    }
    const qint64 length = text.mid(slash + 1).toLongLong(&isNumber);
    if (isNumber) {
        range.length = length;
    }
    return range;
}

QNetworkRequest networkRequest(const QUrl& url, const QByteArray& userAgent)
{
    using enum QNetworkRequest::Attribute;
    QNetworkRequest request(url);
    request.setAttribute(RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(CacheSaveControlAttribute, false);
    request.setAttribute(Http2AllowedAttribute, false);
    request.setRawHeader("User-Agent", userAgent);
    // Left alone, the toolkit would tell the user's languages, and unpack whatever comes.
    request.setRawHeader("Accept-Language", "en");
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

} // namespace

UpdateTransfer::UpdateTransfer(const Dependencies& dependencies, Request request, Hooks hooks)
    : m_mainQueue(dependencies.mainQueue)
    , m_workQueue(dependencies.workQueue)
    , m_userAgent(dependencies.userAgent)
    , m_request(std::move(request))
    , m_hooks(std::move(hooks))
{
    const Patience& patience = m_request.patience;
    m_window = m_mainQueue.every(patience.windowSeconds, [this] {
        if (std::exchange(m_receivedInWindow, 0) < m_request.patience.leastBytes) {
            end(TransferFault{.reason = u"The server stopped answering."_s, .mayPass = true});
        }
    });
    if (patience.totalSeconds > 0) {
        m_deadline = m_mainQueue.after(patience.totalSeconds, [this] {
            end(TransferFault{.reason = u"The server is too slow."_s, .mayPass = true});
        });
    }
    if (!mayFetch(m_request.url)) {
        end(TransferFault{
            .reason = u"%1 would come over an unprotected connection."_s.arg(m_request.subject)});
        return;
    }
    open(m_request.url);
}

UpdateTransfer::~UpdateTransfer() = default;

void UpdateTransfer::open(const QUrl& url)
{
    m_url = url;
    m_manager = std::make_unique<QNetworkAccessManager>();
    if (isPlain(url)) { // This machine.
        m_manager->setProxy(QNetworkProxy::NoProxy);
        send(url);
        return;
    }
    // Finding the proxy may take the system seconds, so the toolkit must not do it here.
    const QPointer<const QObject> alive(&m_alive);
    m_workQueue.run(
        WorkPriority::userInitiated,
        [url] { return QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url)); },
        [this, alive, url](const QList<QNetworkProxy>& proxies) {
            if (alive && m_manager && !m_isEnding) {
                m_manager->setProxy(proxies.value(0, QNetworkProxy::NoProxy));
                send(url);
            }
        });
}

void UpdateTransfer::send(const QUrl& url)
{
    QNetworkRequest request = networkRequest(url, m_userAgent);
    if (m_request.startsAt > 0) {
        request.setRawHeader("Range", "bytes=" + QByteArray::number(m_request.startsAt) + '-');
        request.setRawHeader("If-Range", m_request.validator);
    }
    m_reply = m_manager->get(request);
    m_reply->setReadBufferSize(readBufferBytes);
    QObject::connect(
        m_reply, &QNetworkReply::sslErrors, &m_alive, [this] { m_hasBadCertificate = true; });
    QObject::connect(m_reply, &QNetworkReply::metaDataChanged, &m_alive, [this] { readHead(); });
    QObject::connect(m_reply, &QNetworkReply::readyRead, &m_alive, [this] { readBody(); });
    QObject::connect(m_reply, &QNetworkReply::finished, &m_alive, [this] { readEnd(); });
}

void UpdateTransfer::readHead()
{
    if (m_isDeaf || m_hasHead || statusOf(*m_reply) == 0) {
        return;
    }
    m_hasHead = true;
    if (m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).isValid()) {
        redirect();
        return;
    }
    std::optional<TransferFault> fault = refusal();
    if (!fault && m_hooks.begin) {
        fault = m_hooks.begin(head());
    }
    if (fault) {
        end(std::move(fault));
    }
}

void UpdateTransfer::redirect()
{
    const QUrl target
        = m_url.resolved(m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl());
    if (!mayFollow(m_url, target)) {
        end(TransferFault{.reason
                          = u"The server wanted to go on over an unprotected connection, which was "
                            u"refused."_s});
        return;
    }
    if (++m_redirects > mostRedirects) {
        end(TransferFault{.reason = u"The server only points from one address to the next."_s});
        return;
    }
    m_isDeaf = true;
    m_next = m_mainQueue.after(0, [this, target] {
        m_reply = nullptr;
        m_isDeaf = false;
        m_hasHead = false;
        open(target);
    });
}

void UpdateTransfer::readBody()
{
    while (!m_isDeaf && m_reply->bytesAvailable() > 0) {
        const QByteArray bytes = m_reply->read(readBufferBytes);
        m_received += bytes.size();
        m_receivedInWindow += bytes.size();
        if (m_received > m_request.mostBytes) {
            end(tooLarge());
        } else if (std::optional<TransferFault> fault = m_hooks.take(bytes)) {
            end(std::move(fault));
        }
    }
}

void UpdateTransfer::readEnd()
{
    readHead();
    if (m_isDeaf) {
        return;
    }
    if (m_hasHead) {
        readBody();
    }
    const QVariant announced = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (!m_hasHead || m_reply->error() != QNetworkReply::NoError) {
        end(networkFault());
    } else if (announced.isValid() && announced.toLongLong() > m_received) {
        end(brokenOff());
    } else {
        end(std::nullopt);
    }
}

void UpdateTransfer::end(std::optional<TransferFault> fault)
{
    if (m_isEnding) {
        return;
    }
    m_isEnding = true;
    m_isDeaf = true;
    m_window.cancel();
    m_deadline.cancel();
    // Not here: a reply must not be destroyed by its own signal.
    m_next = m_mainQueue.after(0, [this, fault = std::move(fault)] {
        m_reply = nullptr;
        m_manager.reset();
        const auto finish = m_hooks.finish;
        finish(fault);
    });
}

std::optional<TransferFault> UpdateTransfer::refusal() const
{
    const int status = statusOf(*m_reply);
    if (status == statusNotFound || status == statusGone) {
        return TransferFault{.reason = u"%1 is not on the server."_s.arg(m_request.subject)};
    }
    const bool isWanted
        = status == statusOk || (status == statusPartialContent && m_request.startsAt > 0);
    if (!isWanted) {
        return TransferFault{.reason = u"The server answered with an error (%1)."_s.arg(status),
                             .mayPass
                             = status >= firstServerError || status == statusRangeNotSatisfiable};
    }
    const QByteArray encoding = m_reply->rawHeader("Content-Encoding").trimmed().toLower();
    if (!encoding.isEmpty() && encoding != "identity") {
        return TransferFault{.reason = u"The server sent something packed, which was refused."_s};
    }
    const std::optional<qint64> length = head().length;
    return length && *length - head().startsAt > m_request.mostBytes ? std::optional(tooLarge())
                                                                     : std::nullopt;
}

UpdateTransfer::Head UpdateTransfer::head() const
{
    Head head{.validator = validatorOf(*m_reply)};
    const QString type = m_reply->header(QNetworkRequest::ContentTypeHeader).toString();
    head.mimeType = type.section(u';', 0, 0).trimmed().toLower();
    if (statusOf(*m_reply) == statusPartialContent) {
        // A range that cannot be read begins where nobody asked.
        const ContentRange range
            = contentRange(m_reply->rawHeader("Content-Range")).value_or(ContentRange{.first = -1});
        head.startsAt = range.first;
        head.length = range.length;
        return head;
    }
    const QVariant announced = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (announced.isValid()) {
        head.length = announced.toLongLong();
    }
    return head;
}

TransferFault UpdateTransfer::tooLarge() const
{
    return {.reason = u"%1 is larger than the %2 MB it may have."_s.arg(
                m_request.subject, QString::number(m_request.mostBytes / bytesPerMegabyte))};
}

TransferFault UpdateTransfer::networkFault() const
{
    switch (m_reply->error()) {
    case QNetworkReply::HostNotFoundError:
        return {.reason = u"The server “%1” was not found. Perhaps this computer is not connected "
                          u"to the internet."_s.arg(m_url.host()),
                .mayPass = true};
    case QNetworkReply::ConnectionRefusedError:
        return {.reason = u"The server “%1” cannot be reached."_s.arg(m_url.host()),
                .mayPass = true};
    case QNetworkReply::SslHandshakeFailedError:
        return {
            .reason = m_hasBadCertificate
                ? u"The server “%1” could not prove who it is: its certificate is not valid "
                  u"here."_s.arg(m_url.host())
                : u"No protected connection to the server “%1” could be made."_s.arg(m_url.host())};
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
    case QNetworkReply::UnknownProxyError:
        return {.reason = u"The proxy of this network let nothing through."_s, .mayPass = true};
    default:
        return brokenOff();
    }
}

TransferFault UpdateTransfer::brokenOff()
{
    return {.reason = u"The connection to the server broke off."_s, .mayPass = true};
}

} // namespace Tavik
