// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/FetchProcess.h>
#include <TavikLauncherPlatform/Linux/Updates/FetchProgram.h>

#include <QFile>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <utility>

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Tavik {

namespace {

/// How a child of ours starts: with one open file of ours, and hearing every signal.
class Spawning
{
public:
    explicit Spawning(int connection)
    {
        ::posix_spawn_file_actions_init(&m_files);
        ::posix_spawn_file_actions_adddup2(&m_files, connection, FetchProgram::connection);
        ::posix_spawnattr_init(&m_attributes);
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&m_attributes, &signals);
        ::sigfillset(&signals);
        ::posix_spawnattr_setsigdefault(&m_attributes, &signals);
        ::posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~Spawning()
    {
        ::posix_spawn_file_actions_destroy(&m_files);
        ::posix_spawnattr_destroy(&m_attributes);
    }
    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    /// 0 when it cannot be started.
    [[nodiscard]] int run(const QString& program)
    {
        QByteArray path = QFile::encodeName(program);
        const std::array<char*, 2> words{path.data(), nullptr};
        pid_t process = 0;
        return ::posix_spawn(
                   &process, path.constData(), &m_files, &m_attributes, words.data(), environ)
                == 0
            ? process
            : 0;
    }

private:
    posix_spawn_file_actions_t m_files{};
    posix_spawnattr_t m_attributes{};
};

} // namespace

FetchProcess::FetchProcess(const QString& program, const FetchRequest& request, Hooks hooks)
    : m_hooks(std::move(hooks))
{
    start(program, request);
}

FetchProcess::~FetchProcess()
{
    static_cast<void>(endProcess());
}

void FetchProcess::start(const QString& program, const FetchRequest& request)
{
    std::array<int, 2> ends{-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return;
    }
    m_connection = FileDescriptor(ends[0]);
    const FileDescriptor theirs(ends[1]);
    FetchRequest complete = request;
    complete.parent = ::getpid();
    const QByteArray message = FetchMessages::pack(complete);
    ::fcntl(m_connection.get(), F_SETFL, O_NONBLOCK);
    // It is sent before anybody listens; what no server has reason to ask for does not fit.
    if (::send(m_connection.get(),
               message.constData(),
               static_cast<std::size_t>(message.size()),
               MSG_NOSIGNAL)
        != message.size()) {
        return;
    }
    m_process = Spawning(theirs.get()).run(program);
    if (m_process > 0) {
        m_notifier = std::make_unique<QSocketNotifier>(m_connection.get(), QSocketNotifier::Read);
        QObject::connect(
            m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { read(); });
    }
}

void FetchProcess::setPaused(bool isPaused)
{
    m_isPaused = isPaused;
    if (m_notifier && !m_isStopped) {
        m_notifier->setEnabled(!isPaused && !m_isAtEnd);
        tell();
    }
}

void FetchProcess::stop()
{
    m_isStopped = true;
    if (m_notifier) {
        m_notifier->setEnabled(false);
    }
}

void FetchProcess::read()
{
    std::array<char, 64 * 1024> piece; // NOLINT(cppcoreguidelines-pro-type-member-init): large
    const ssize_t count = ::read(m_connection.get(), piece.data(), piece.size());
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) {
        return;
    }
    m_isAtEnd = count <= 0;
    if (m_isAtEnd) {
        m_notifier->setEnabled(false);
    } else {
        m_received.append(piece.data(), count);
    }
    tell();
}

void FetchProcess::tell()
{
    while (!m_isStopped && !m_isPaused) {
        if (const std::optional<FetchMessages::Message> message = FetchMessages::take(m_received)) {
            tell(*message);
        } else if (m_isAtEnd || m_received.size() > 2 * FetchMessages::mostBytes) {
            lose();
        } else {
            return;
        }
    }
}

void FetchProcess::tell(const FetchMessages::Message& message)
{
    if (message.kind == FetchMessages::Kind::bytes) {
        m_hooks.bytes(message.value);
    } else if (const std::optional<FetchAnswer> answer = FetchMessages::answer(message)) {
        m_hooks.answer(*answer);
    } else if (const std::optional<FetchEnd> end = FetchMessages::end(message)) {
        stop();
        m_hooks.end(*end);
    } else {
        lose();
    }
}

void FetchProcess::lose()
{
    stop();
    const int status = endProcess();
    const bool isFull = WIFEXITED(status) && WEXITSTATUS(status) == FetchProgram::outOfMemory;
    m_hooks.lost(isFull ? Loss::outOfMemory : Loss::broken);
}

int FetchProcess::endProcess()
{
    int status = 0;
    if (m_process > 0) {
        // One that has ended keeps its number and how it ended until it is waited for.
        ::kill(m_process, SIGKILL);
        while (::waitpid(m_process, &status, 0) < 0 && errno == EINTR) { }
        m_process = 0;
    }
    return status;
}

} // namespace Tavik
