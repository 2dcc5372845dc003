// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateTransfer.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateUrls.h>
#include <TavikLauncherPlatform/Texts.h>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirects = 5;
constexpr qint64 bytesPerMegabyte = 1'000'000;

} // namespace

UpdateTransfer::UpdateTransfer(const Dependencies& dependencies, Request request, Hooks hooks)
    : m_mainQueue(dependencies.mainQueue)
    , m_fetchProgram(dependencies.fetchProgram)
    , m_userAgent(dependencies.userAgent)
    , m_request(std::move(request))
    , m_hooks(std::move(hooks))
{
    const Patience& patience = m_request.patience;
    m_window = m_mainQueue.every(patience.windowSeconds, [this] {
        const bool isSlow = m_receivedInWindow < m_request.patience.leastBytes;
        m_receivedInWindow = 0;
        if (isSlow && !m_isPaused) {
            end(TransferFault{.reason = Texts::tr("The server stopped answering."),
                              .mayPass = true});
        }
    });
    if (patience.totalSeconds > 0) {
        m_deadline = m_mainQueue.after(patience.totalSeconds, [this] {
            end(TransferFault{.reason = Texts::tr("The server is too slow."), .mayPass = true});
        });
    }
    if (!mayFetch(m_request.url)) {
        end(TransferFault{
            .reason
            = Texts::tr("%1 would come over an unprotected connection.").arg(m_request.subject)});
        return;
    }
    open(m_request.url);
}

UpdateTransfer::~UpdateTransfer() = default;

void UpdateTransfer::open(const QUrl& url)
{
    m_url = url;
    m_hasAnswer = false;
    m_fetch = std::make_unique<FetchProcess>(
        m_fetchProgram,
        FetchRequest{.url = url,
                     .userAgent = m_userAgent,
                     .startsAt = m_request.startsAt,
                     .validator = m_request.validator},
        FetchProcess::Hooks{.answer = [this](const FetchAnswer& answer) { answered(answer); },
                            .bytes = [this](const QByteArray& bytes) { take(bytes); },
                            .end = [this](FetchEnd fetchEnd) { fetched(fetchEnd); },
                            .lost =
                                [this](FetchProcess::Loss loss) {
                                    lost(loss);
                                }});
    if (!m_fetch->hasStarted()) {
        end(TransferFault{.reason
                          = Texts::tr("The system lets no process be started for the download."),
                          .mayPass = true});
    }
}

void UpdateTransfer::answered(const FetchAnswer& answer)
{
    m_hasAnswer = true;
    if (!answer.redirection.isEmpty()) {
        redirect(answer.redirection);
        return;
    }
    std::optional<TransferFault> fault
        = UpdateReply::refusal(answer, m_request.subject, m_request.startsAt > 0);
    if (!fault) {
        const TransferHead head = UpdateReply::head(answer);
        fault = head.length && *head.length - head.startsAt > m_request.mostBytes
            ? tooLarge()
            : (m_hooks.begin ? m_hooks.begin(head) : std::nullopt);
    }
    m_announced = answer.length.value_or(0);
    if (fault) {
        end(std::move(fault));
    }
}

void UpdateTransfer::redirect(const QUrl& redirection)
{
    const QUrl target = m_url.resolved(redirection);
    if (!mayFollow(m_url, target)) {
        end(TransferFault{
            .reason
            = Texts::tr("The server wanted to go on over an unprotected connection, which was "
                        "refused.")});
        return;
    }
    if (++m_redirects > mostRedirects) {
        end(TransferFault{.reason
                          = Texts::tr("The server only points from one address to the next.")});
        return;
    }
    m_fetch->stop();
    m_next = m_mainQueue.after(0, [this, target] { open(target); });
}

void UpdateTransfer::setPaused(bool isPaused)
{
    if (std::exchange(m_isPaused, isPaused) != isPaused && m_fetch) {
        m_fetch->setPaused(isPaused);
    }
}

void UpdateTransfer::take(const QByteArray& bytes)
{
    m_received += bytes.size();
    m_receivedInWindow += bytes.size();
    if (!m_hasAnswer) {
        lost(FetchProcess::Loss::broken);
    } else if (m_received > m_request.mostBytes) {
        end(tooLarge());
    } else if (std::optional<TransferFault> fault = m_hooks.take(bytes)) {
        end(std::move(fault));
    }
}

void UpdateTransfer::fetched(FetchEnd fetchEnd)
{
    if (!m_hasAnswer || fetchEnd != FetchEnd::complete) {
        end(UpdateReply::networkFault(fetchEnd, m_url.host()));
    } else if (m_announced > m_received) {
        end(UpdateReply::brokenOff());
    } else {
        end(std::nullopt);
    }
}

void UpdateTransfer::lost(FetchProcess::Loss loss)
{
    end(loss == FetchProcess::Loss::outOfMemory
            ? TransferFault{.reason = Texts::tr("The server sent far more than it was asked for.")}
            : UpdateReply::brokenOff());
}

void UpdateTransfer::end(std::optional<TransferFault> fault)
{
    if (m_isEnding) {
        return;
    }
    m_isEnding = true;
    m_window.cancel();
    m_deadline.cancel();
    if (m_fetch) {
        m_fetch->stop();
    }
    // Not here: it may be the process that calls us.
    m_next = m_mainQueue.after(0, [this, fault = std::move(fault)] {
        m_fetch.reset();
        const auto finish = m_hooks.finish;
        finish(fault);
    });
}

TransferFault UpdateTransfer::tooLarge() const
{
    return {.reason
            = Texts::tr("%1 is larger than the %2 MB it may have.")
                  .arg(m_request.subject, QString::number(m_request.mostBytes / bytesPerMegabyte))};
}

} // namespace Tavik
