// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateTransfer.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QFile>
#include <QList>
#include <QNetworkProxy>
#include <QNetworkRequest>
#include <QPointer>

#include <utility>

#include <unistd.h>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirects = 5;
constexpr qint64 readBufferBytes = 256LL * 1024;
constexpr double betweenLooks = 0.25; ///< Seconds.
constexpr qint64 mostHoarded = 100'000'000;
constexpr qint64 bytesPerMegabyte = 1'000'000;

bool isPlain(const QUrl& url)
{
    return url.scheme() == u"http"_s;
}

/// What this process has in memory, in bytes; 0 when that cannot be told.
qint64 residentBytes()
{
    QFile statistics(u"/proc/self/statm"_s);
    if (!statistics.open(QIODevice::ReadOnly)) {
        return 0;
    }
    return statistics.readLine().split(' ').value(1).toLongLong() * ::sysconf(_SC_PAGESIZE);
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
        const bool isSlow = m_receivedInWindow < m_request.patience.leastBytes;
        m_receivedInWindow = 0;
        if (isSlow && !m_isPaused) {
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
    // Some of what a server says the toolkit gathers without a limit or a word: the head, what
    // stands between the pieces of a body, and the whole body of some refusals.
    m_hoard = m_mainQueue.every(betweenLooks, [this, before = residentBytes()] {
        if (residentBytes() - before > mostHoarded) {
            end(TransferFault{.reason = u"The server sent far more than it was asked for."_s,
                              .mayPass = true}); // Perhaps something else has grown.
        }
    });
    QObject::connect(
        m_reply, &QNetworkReply::sslErrors, &m_alive, [this] { m_hasBadCertificate = true; });
    QObject::connect(m_reply, &QNetworkReply::metaDataChanged, &m_alive, [this] { readHead(); });
    QObject::connect(m_reply, &QNetworkReply::readyRead, &m_alive, [this] { readBody(); });
    QObject::connect(m_reply, &QNetworkReply::finished, &m_alive, [this] { readEnd(); });
}

void UpdateTransfer::readHead()
{
    if (m_isDeaf || m_hasHead || UpdateReply::status(*m_reply) == 0) {
        return;
    }
    m_hasHead = true;
    if (m_reply->attribute(QNetworkRequest::RedirectionTargetAttribute).isValid()) {
        redirect();
        return;
    }
    std::optional<TransferFault> fault
        = UpdateReply::refusal(*m_reply, m_request.subject, m_request.startsAt > 0);
    if (!fault) {
        fault = begin(UpdateReply::head(*m_reply));
    }
    if (fault) {
        end(std::move(fault));
    }
}

std::optional<TransferFault> UpdateTransfer::begin(const TransferHead& head)
{
    if (head.length && *head.length - head.startsAt > m_request.mostBytes) {
        return tooLarge();
    }
    return m_hooks.begin ? m_hooks.begin(head) : std::nullopt;
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

void UpdateTransfer::setPaused(bool isPaused)
{
    if (std::exchange(m_isPaused, isPaused) == isPaused || isPaused || m_isEnding || !m_reply) {
        return;
    }
    if (m_isComplete) {
        readEnd();
    } else {
        readBody();
    }
}

void UpdateTransfer::readBody()
{
    while (!m_isDeaf && !m_isPaused && m_reply->bytesAvailable() > 0) {
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
    m_isComplete = m_isPaused;
    if (m_isPaused || m_isDeaf) {
        return;
    }
    const QVariant announced = m_reply->header(QNetworkRequest::ContentLengthHeader);
    if (!m_hasHead || m_reply->error() != QNetworkReply::NoError) {
        end(UpdateReply::networkFault(*m_reply, m_hasBadCertificate));
    } else if (announced.isValid() && announced.toLongLong() > m_received) {
        end(UpdateReply::brokenOff());
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
    m_hoard.cancel();
    // Not here: a reply must not be destroyed by its own signal.
    m_next = m_mainQueue.after(0, [this, fault = std::move(fault)] {
        m_reply = nullptr;
        m_manager.reset();
        const auto finish = m_hooks.finish;
        finish(fault);
    });
}

TransferFault UpdateTransfer::tooLarge() const
{
    return {.reason = u"%1 is larger than the %2 MB it may have."_s.arg(
                m_request.subject, QString::number(m_request.mostBytes / bytesPerMegabyte))};
}

} // namespace Tavik
