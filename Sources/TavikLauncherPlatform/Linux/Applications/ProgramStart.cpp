// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/ProgramStart.h>
#include <TavikLauncherPlatform/Texts.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cstring>
#include <fcntl.h>
#include <glib.h>
#include <utility>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace Tavik {

namespace {

using namespace Qt::StringLiterals;

class Descriptor
{
public:
    explicit Descriptor(int descriptor)
        : m_descriptor(descriptor)
    { }
    ~Descriptor()
    {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }
    Q_DISABLE_COPY_MOVE(Descriptor)

    [[nodiscard]] int get() const { return m_descriptor; }

private:
    int m_descriptor;
};

/// A stream whose lines the journal keeps under `name`; -1 where there is no journal.
int journalStream(const QString& name)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    constexpr std::string_view path = "/run/systemd/journal/stdout";
    path.copy(&address.sun_path[0], path.size());
    // Without waiting: a journal that is held up must not hold up the start.
    const int stream = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (stream < 0) {
        return -1;
    }
    // The journal's greeting: name, unit, priority, whether lines may begin with a priority, and
    // whether they go on to the log daemon, the kernel and the console.
    const QByteArray greeting = name.toUtf8().replace('\n', ' ') + "\n\n6\n0\n0\n0\n0\n";
    if (::connect(stream, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0
        || ::send(stream,
                  greeting.constData(),
                  static_cast<std::size_t>(greeting.size()),
                  MSG_NOSIGNAL)
            != greeting.size()) {
        ::close(stream);
        return -1;
    }
    ::shutdown(stream, SHUT_RD);
    const int flags = ::fcntl(stream, F_GETFL);
    ::fcntl(stream, F_SETFL, flags & ~O_NONBLOCK);
    return stream;
}

constexpr std::string_view processIdVariable = "GIO_LAUNCHED_DESKTOP_FILE_PID=";
constexpr std::size_t processIdDigits = 20;

/// What the child does between fork and exec, where nothing may allocate.
void prepareChild(gpointer processIdText)
{
    ::setsid();
    if (!processIdText) {
        return;
    }
    // Children inherit the variable; the number tells them from the one it is meant for.
    std::array<char, processIdDigits> digits{};
    std::size_t count = 0;
    for (auto rest = static_cast<unsigned long>(::getpid()); rest > 0; rest /= 10) {
        digits.at(count++) = static_cast<char>('0' + rest % 10);
    }
    auto* text = static_cast<char*>(processIdText);
    while (count > 0) {
        *text++ = digits.at(--count);
    }
    *text = '\0';
}

std::vector<char*> pointersTo(QByteArrayList& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(static_cast<std::size_t>(texts.size()) + 1);
    for (QByteArray& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

QString takeMessage(GError* error)
{
    const QString message
        = error ? QString::fromUtf8(error->message) : Texts::tr("The program cannot be started.");
    g_clear_error(&error);
    return message;
}

} // namespace

LaunchResult startProgram(const ProgramStart& start)
{
    QByteArrayList arguments;
    for (const QString& word : start.words) {
        arguments.append(QFile::encodeName(word));
    }
    if (arguments.isEmpty() || arguments.first().isEmpty()) {
        return {.error = Texts::tr("There is no program to start.")};
    }
    QByteArrayList variables;
    for (auto variable = start.environment.cbegin(); variable != start.environment.cend();
         ++variable) {
        variables.append(variable.key() + '=' + variable.value());
    }
    char* processIdText = nullptr;
    if (!start.entry.isEmpty()) {
        variables.append("GIO_LAUNCHED_DESKTOP_FILE=" + QFile::encodeName(start.entry));
        variables.append(QByteArray(processIdVariable.data(), processIdVariable.size())
                         + QByteArray(processIdDigits, ' '));
        processIdText = variables.last().data() + processIdVariable.size();
    }
    const QString folder = QFileInfo(start.folder).isDir() ? start.folder : QDir::homePath();
    const Descriptor journal(journalStream(start.name));
    constexpr int flags
        = G_SPAWN_SEARCH_PATH_FROM_ENVP | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL;
    constexpr int journalFlags = G_SPAWN_SEARCH_PATH_FROM_ENVP;
    LaunchResult result;
    GPid processId = 0;
    GError* error = nullptr;
    // Without G_SPAWN_DO_NOT_REAP_CHILD glib forks twice, so the child never becomes ours to wait
    // for.
    const gboolean isStarted
        = g_spawn_async_with_fds(QFile::encodeName(folder).constData(),
                                 pointersTo(arguments).data(),
                                 pointersTo(variables).data(),
                                 GSpawnFlags(journal.get() < 0 ? flags : journalFlags),
                                 prepareChild,
                                 processIdText,
                                 &processId,
                                 -1,
                                 journal.get(),
                                 journal.get(),
                                 &error);
    if (isStarted == FALSE) {
        result.error = takeMessage(error);
        return result;
    }
    result.processId = processId;
    return result;
}

} // namespace Tavik
