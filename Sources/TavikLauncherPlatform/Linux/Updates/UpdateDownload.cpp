// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateDownload.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostFailures = 5; ///< In a row; they take half a minute.
constexpr qint64 headway = 64LL * 1024; ///< After so much a failure is not "in a row".
constexpr double progressSeconds = 0.1;
constexpr qint64 slowestBytesPerWindow = 16LL * 1024;

std::optional<TransferFault> lasting(const std::optional<QString>& reason)
{
    return reason ? std::optional(TransferFault{.reason = *reason}) : std::nullopt;
}

TransferFault wrongLength()
{
    return {.reason = u"The update on the server is not the one that was announced: its length is "
                      u"another."_s};
}

} // namespace

UpdateDownload::UpdateDownload(const UpdateTransfer::Dependencies& dependencies,
                               Request request,
                               Hooks hooks)
    : m_dependencies(dependencies)
    , m_request(std::move(request))
    , m_hooks(std::move(hooks))
    , m_file(std::make_unique<PartFile>(m_request.path))
{
    if (const std::optional<QString> reason = m_file->create(m_request.length)) {
        m_retry = m_dependencies.mainQueue.after(0, [this, reason] { finish(*reason); });
        return;
    }
    m_progress = m_dependencies.mainQueue.every(progressSeconds, [this] { reportProgress(); });
    connectAgain();
}

UpdateDownload::~UpdateDownload() = default;

void UpdateDownload::connectAgain()
{
    const qint64 startsAt = m_validator.isEmpty() ? 0 : m_file->size();
    m_transfer = std::make_unique<UpdateTransfer>(
        m_dependencies,
        UpdateTransfer::Request{.url = m_request.url,
                                .subject = u"The update"_s,
                                .mostBytes = UpdateSignature::mostFileBytes,
                                .startsAt = startsAt,
                                .validator = m_validator,
                                .patience = {.leastBytes = slowestBytesPerWindow}},
        UpdateTransfer::Hooks{.begin = [this](const TransferHead& head) { return accept(head); },
                              .take = [this](const QByteArray& bytes) { return take(bytes); },
                              .finish =
                                  [this](const std::optional<TransferFault>& fault) {
                                      connectionEnded(fault);
                                  }});
}

std::optional<TransferFault> UpdateDownload::accept(const TransferHead& head)
{
    if (head.length && *head.length != m_request.length) {
        return wrongLength();
    }
    m_validator = head.validator;
    if (head.startsAt == m_file->size()) {
        return std::nullopt;
    }
    if (head.startsAt != 0) {
        m_validator.clear(); // From the beginning, then.
        return TransferFault{.reason = u"The server did not continue where it was asked to."_s,
                             .mayPass = true};
    }
    return lasting(m_file->restart());
}

std::optional<TransferFault> UpdateDownload::take(const QByteArray& bytes)
{
    if (m_file->size() + bytes.size() > m_request.length) {
        return wrongLength();
    }
    return lasting(m_file->append(bytes));
}

void UpdateDownload::connectionEnded(const std::optional<TransferFault>& fault)
{
    m_transfer.reset();
    if (!fault) {
        finish(m_file->size() == m_request.length ? QString() : wrongLength().reason);
        return;
    }
    // What had been here already, before it came from the beginning again, is none.
    if (m_file->size() - m_farthest >= headway) {
        m_failures = 0;
        m_farthest = m_file->size();
    }
    if (!fault->mayPass || m_failures == mostFailures) {
        finish(fault->reason);
        return;
    }
    m_retry = m_dependencies.mainQueue.after(1 << m_failures, [this] { connectAgain(); });
    ++m_failures;
}

void UpdateDownload::finish(const QString& reason)
{
    m_progress.cancel();
    std::unique_ptr<PartFile> file = std::move(m_file);
    if (reason.isEmpty()) {
        file->close();
    } else {
        file.reset();
    }
    const auto done = m_hooks.finish;
    done(std::move(file), reason);
}

void UpdateDownload::reportProgress()
{
    if (m_reported != m_file->size()) {
        m_reported = m_file->size();
        const auto progress = m_hooks.progress;
        progress(m_reported);
    }
}

} // namespace Tavik
