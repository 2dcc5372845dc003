// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateDownload.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#include <TavikLauncherPlatform/Texts.h>
#include <TavikLauncherPlatform/WorkQueue.h>

#include <QPointer>

#include <utility>

namespace Tavik {

using namespace Qt::StringLiterals;

namespace {

constexpr int mostFailures = 5; ///< In a row; they take half a minute.
constexpr qint64 headway = 64LL * 1024; ///< After so much a failure is not "in a row".
constexpr double progressSeconds = 0.1;
constexpr qint64 slowestBytesPerWindow = 16LL * 1024;
constexpr qint64 mostWaiting = 8'000'000; ///< Bytes in memory, for a disk that is slow.

/// Stands for the connection before the first: the next is made once the file is there.
TransferFault firstConnection()
{
    return {.mayPass = true};
}

TransferFault wrongLength()
{
    return {.reason
            = Texts::tr("The update on the server is not the one that was announced: its length is "
                        "another.")};
}

} // namespace

UpdateDownload::UpdateDownload(const UpdateTransfer::Dependencies& dependencies,
                               WorkQueue& workQueue,
                               Request request,
                               Hooks hooks)
    : m_dependencies(dependencies)
    , m_workQueue(workQueue)
    , m_request(std::move(request))
    , m_hooks(std::move(hooks))
    , m_file(std::make_shared<PartFile>(m_request.path))
{
    m_progress = m_dependencies.mainQueue.every(progressSeconds, [this] { reportProgress(); });
    m_connectionEnd = firstConnection();
    onDisk([length = m_request.length](PartFile& file) { return file.create(length); });
}

UpdateDownload::~UpdateDownload()
{
    discard(m_workQueue, std::move(m_file));
}

void UpdateDownload::onDisk(std::function<std::optional<QString>(PartFile&)> action, qint64 bytes)
{
    m_waiting += bytes;
    ++m_actions;
    m_workQueue.run(
        WorkPriority::utility,
        [file = m_file, action = std::move(action)] { return action(*file); },
        [this, alive = QPointer<QObject>(&m_alive), bytes](const std::optional<QString>& reason) {
            if (alive) {
                done(bytes, reason);
            }
        });
}

void UpdateDownload::done(qint64 bytes, const std::optional<QString>& reason)
{
    m_waiting -= bytes;
    --m_actions;
    if (!m_file) {
        return; // It is over already.
    }
    if (reason) {
        m_transfer.reset();
        finish(*reason);
    } else if (m_connectionEnd && m_actions == 0) {
        judgeConnection();
    } else if (m_transfer && m_waiting <= mostWaiting / 2) {
        m_transfer->setPaused(false);
    }
}

void UpdateDownload::connectAgain()
{
    const qint64 startsAt = m_validator.isEmpty() ? 0 : m_size;
    m_connectionEnd.reset();
    m_transfer = std::make_unique<UpdateTransfer>(
        m_dependencies,
        UpdateTransfer::Request{.url = m_request.url,
                                .subject = Texts::tr("The update"),
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
    if (head.startsAt == m_size) {
        return std::nullopt;
    }
    if (head.startsAt != 0) {
        m_validator.clear(); // From the beginning, then.
        return TransferFault{.reason
                             = Texts::tr("The server did not continue where it was asked to."),
                             .mayPass = true};
    }
    m_size = 0;
    onDisk([](PartFile& file) { return file.restart(); });
    return std::nullopt;
}

std::optional<TransferFault> UpdateDownload::take(const QByteArray& bytes)
{
    if (m_size + bytes.size() > m_request.length) {
        return wrongLength();
    }
    m_size += bytes.size();
    onDisk([bytes](PartFile& file) { return file.append(bytes); }, bytes.size());
    if (m_transfer) { // Not yet, where the first bytes come at once.
        m_transfer->setPaused(m_waiting > mostWaiting);
    }
    return std::nullopt;
}

void UpdateDownload::connectionEnded(const std::optional<TransferFault>& fault)
{
    m_transfer.reset();
    m_connectionEnd = fault;
    if (m_actions == 0) {
        judgeConnection();
    }
}

void UpdateDownload::judgeConnection()
{
    const std::optional<TransferFault> fault = *std::exchange(m_connectionEnd, std::nullopt);
    if (fault == firstConnection()) {
        connectAgain();
        return;
    }
    if (!fault) {
        finish(m_size == m_request.length ? QString() : wrongLength().reason);
        return;
    }
    // What had been here already, before it came from the beginning again, is none.
    if (m_size - m_farthest >= headway) {
        m_failures = 0;
        m_farthest = m_size;
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
    m_retry.cancel();
    std::shared_ptr<PartFile> file = std::move(m_file);
    if (reason.isEmpty()) {
        file->close();
    } else {
        discard(m_workQueue, std::move(file));
    }
    const auto finished = m_hooks.finish;
    finished(std::move(file), reason);
}

void discard(WorkQueue& workQueue, std::shared_ptr<PartFile> file)
{
    if (file) {
        workQueue.schedule(WorkPriority::utility,
                           [file = std::move(file)]() mutable -> WorkQueue::Done {
                               file.reset();
                               return [] {
                               };
                           });
    }
}

void UpdateDownload::reportProgress()
{
    if (m_reported != m_size) {
        m_reported = m_size;
        const auto progress = m_hooks.progress;
        progress(m_reported);
    }
}

} // namespace Tavik
