// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/LocalSocket.h>

#include <QFile>
#include <QTimer>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <iterator>
#include <optional>
#include <utility>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace Tavik {

namespace {

constexpr qsizetype pieceBytes = 64 * 1024;
/// Whoever takes nothing of this does not read at all.
constexpr qsizetype mostWaiting = 16 * 1024 * 1024;
constexpr int backlog = 50;
constexpr int takingSeconds = 1;
constexpr std::chrono::seconds pause{1};

using Piece = std::array<char, pieceBytes>;

struct Address
{
    sockaddr_un value{};
    socklen_t length = 0;

    [[nodiscard]] const sockaddr* get() const { return reinterpret_cast<const sockaddr*>(&value); }
};

/// Absent when a socket's address has no room for the path.
std::optional<Address> addressOf(const QByteArray& path)
{
    Address address;
    address.value.sun_family = AF_UNIX;
    if (path.isEmpty() || path.indexOf('\0', 1) >= 0
        || std::size(address.value.sun_path) <= std::size_t(path.size())) {
        return std::nullopt;
    }
    std::memcpy(address.value.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    // To the kernel a name without a file is as long as the address; a path ends with a zero.
    const auto end = static_cast<std::size_t>(path.size()) + (path.front() == '\0' ? 0 : 1);
    address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + end);
    return address;
}

FileDescriptor makeSocket(int flags = 0)
{
    return FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0));
}

bool connectTo(const FileDescriptor& socket, const QString& path)
{
    const std::optional<Address> address = addressOf(QFile::encodeName(path));
    errno = ENOENT;
    return address && socket.isOpen()
        && ::connect(socket.get(), address->get(), address->length) == 0;
}

void setPatience(const FileDescriptor& socket, int option, int seconds)
{
    const timeval time{.tv_sec = seconds, .tv_usec = 0};
    ::setsockopt(socket.get(), SOL_SOCKET, option, &time, sizeof time);
}

/// This and the next are not ended by a signal.
ssize_t receiveFrom(const FileDescriptor& socket, Piece& piece)
{
    ssize_t count = 0;
    do {
        count = ::recv(socket.get(), piece.data(), piece.size(), 0);
    } while (count < 0 && errno == EINTR);
    return count;
}

ssize_t sendTo(const FileDescriptor& socket, const QByteArray& bytes)
{
    ssize_t count = 0;
    do {
        count = ::send(
            socket.get(), bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
    } while (count < 0 && errno == EINTR);
    return count;
}

} // namespace

LocalSocket::LocalSocket(const QString& path)
    : m_connection(makeSocket(SOCK_NONBLOCK))
{
    if (connectTo(m_connection, path)) {
        open();
    } else {
        m_connection.close();
    }
}

LocalSocket::LocalSocket(FileDescriptor connection)
    : m_connection(std::move(connection))
{
    open();
}

void LocalSocket::open()
{
    m_readable.reset(new QSocketNotifier(m_connection.get(), QSocketNotifier::Read));
    m_writable.reset(new QSocketNotifier(m_connection.get(), QSocketNotifier::Write));
    m_writable->setEnabled(false);
    QObject::connect(
        m_readable.get(), &QSocketNotifier::activated, m_readable.get(), [this] { receive(); });
    QObject::connect(
        m_writable.get(), &QSocketNotifier::activated, m_writable.get(), [this] { sendWaiting(); });
}

void LocalSocket::send(const QByteArray& bytes)
{
    if (isOpen() && !m_isFinishing) {
        m_waiting += bytes;
        sendWaiting();
    }
}

void LocalSocket::finish()
{
    if (isOpen()) {
        m_isFinishing = true;
        m_readable->setEnabled(false);
        sendWaiting();
    }
}

void LocalSocket::close()
{
    m_readable.reset();
    m_writable.reset();
    m_waiting.clear();
    m_connection.close();
}

void LocalSocket::receive()
{
    Piece piece; // NOLINT(cppcoreguidelines-pro-type-member-init): large
    const ssize_t count = receiveFrom(m_connection, piece);
    if (count > 0) {
        if (const auto tell = onReceived) {
            tell(QByteArray(piece.data(), count));
        }
    } else if (count == 0 || errno != EAGAIN) {
        lose();
    }
}

void LocalSocket::sendWaiting()
{
    const ssize_t count = m_waiting.isEmpty() ? 0 : sendTo(m_connection, m_waiting);
    if (count > 0) {
        m_waiting.remove(0, count);
    }
    if ((count < 0 && errno != EAGAIN) || m_waiting.size() > mostWaiting) {
        m_waiting.clear();
        ::shutdown(m_connection.get(), SHUT_RDWR); // Which is heard later, outside of this call.
    }
    m_writable->setEnabled(!m_waiting.isEmpty());
    if (m_isFinishing && m_waiting.isEmpty()) {
        close();
    }
}

void LocalSocket::lose()
{
    close();
    if (const auto tell = onClosed) {
        tell();
    }
}

bool LocalListener::listen(const QString& path)
{
    close();
    const QByteArray name = QFile::encodeName(path);
    const std::optional<Address> address = addressOf(name);
    FileDescriptor socket = makeSocket(SOCK_NONBLOCK);
    if (!address || !socket.isOpen()) {
        return false;
    }
    ::unlink(name.constData());
    // The file that comes of it is given the rights of the socket.
    if (::fchmod(socket.get(), S_IRUSR | S_IWUSR) != 0
        || ::bind(socket.get(), address->get(), address->length) != 0
        || ::listen(socket.get(), backlog) != 0) {
        return false;
    }
    m_path = name;
    m_socket = std::move(socket);
    m_readable.reset(new QSocketNotifier(m_socket.get(), QSocketNotifier::Read));
    QObject::connect(
        m_readable.get(), &QSocketNotifier::activated, m_readable.get(), [this] { accept(); });
    return true;
}

void LocalListener::close()
{
    if (m_socket.isOpen()) {
        ::unlink(m_path.constData());
        m_readable.reset();
        m_socket.close();
    }
}

void LocalListener::accept()
{
    FileDescriptor connection(
        ::accept4(m_socket.get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (connection.isOpen()) {
        onConnection(std::move(connection));
    } else if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED) {
        // Too many open files, most often. Until then it would be told of again and again.
        m_readable->setEnabled(false);
        QTimer::singleShot(pause, m_readable.get(), [this] { m_readable->setEnabled(true); });
    }
}

LocalQuestion::Answer
LocalQuestion::ask(const QString& path, const QByteArray& words, qsizetype enough, int patience)
{
    const FileDescriptor socket = makeSocket();
    setPatience(socket, SO_SNDTIMEO, takingSeconds);
    setPatience(socket, SO_RCVTIMEO, patience);
    if (!connectTo(socket, path) || sendTo(socket, words) != words.size()) {
        return {.outcome = errno == EAGAIN ? Outcome::silent : Outcome::nobody, .bytes = {}};
    }
    Answer answer;
    Piece piece; // NOLINT(cppcoreguidelines-pro-type-member-init): large
    while (answer.bytes.size() < enough) {
        const ssize_t count = receiveFrom(socket, piece);
        if (count <= 0) {
            const bool isSilent = count < 0 && errno == EAGAIN && answer.bytes.isEmpty();
            answer.outcome = isSilent ? Outcome::silent : answer.outcome;
            break;
        }
        answer.outcome = Outcome::answered;
        answer.bytes.append(piece.data(), count);
    }
    return answer;
}

} // namespace Tavik
