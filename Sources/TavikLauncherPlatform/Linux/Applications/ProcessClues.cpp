// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/WindowMatching.h>

#include <QFile>
#include <QList>

#include <algorithm>

#include <unistd.h>

namespace Tavik {

namespace {

constexpr qint64 largestProcessFile = 256 * 1024;
constexpr qsizetype mostWords = 16;

QByteArray processFile(qint64 processId, const char* name)
{
    QFile file(QStringLiteral("/proc/%1/%2").arg(processId).arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.read(largestProcessFile)
                                                                  : QByteArray();
}

} // namespace

void WindowMatching::readEnvironment(const QByteArray& block,
                                     qint64 processId,
                                     qint64 sessionId,
                                     ProcessClues& clues)
{
    QString launchedEntry;
    QString image;
    QString imageRoot;
    qint64 launchedProcess = 0;
    for (const QByteArray& line : block.split('\0')) {
        const qsizetype equals = line.indexOf('=');
        const QByteArray name = line.left(equals);
        const QByteArray value = line.mid(equals + 1);
        if (name == "GIO_LAUNCHED_DESKTOP_FILE") {
            launchedEntry = QFile::decodeName(value);
        } else if (name == "GIO_LAUNCHED_DESKTOP_FILE_PID") {
            launchedProcess = value.toLongLong();
        } else if (name == "BAMF_DESKTOP_FILE_HINT") {
            clues.inheritedEntry = QFile::decodeName(value);
        } else if (name == "APPIMAGE") {
            image = QFile::decodeName(value);
        } else if (name == "APPDIR") {
            imageRoot = QFile::decodeName(value);
        }
    }
    // Whatever an image starts inherits the variables, too.
    if (imageRoot.startsWith(u'/') && clues.executable.startsWith(imageRoot + u'/')) {
        clues.image = image;
    }
    // Children of what was launched inherit the variable, but their number is another one.
    if (launchedProcess == processId) {
        clues.launchedEntry = launchedEntry;
    } else if (launchedProcess == sessionId) {
        clues.sessionEntry = launchedEntry;
    }
}

qint64 processIdOutside(qint64 claimed, qint64 peer)
{
    if (claimed <= 0 || peer <= 0 || claimed == peer) {
        return claimed;
    }
    // Its numbers from the outermost container, ours, to its own.
    for (const QByteArray& line : processFile(peer, "status").split('\n')) {
        if (line.startsWith("NSpid:")) {
            return line.simplified().split(' ').last().toLongLong() == claimed ? peer : claimed;
        }
    }
    return claimed;
}

QString controlGroupOf(qint64 processId)
{
    for (const QByteArray& line : processFile(processId, "cgroup").split('\n')) {
        // "0::/path", or "1:name=systemd:/path" on a machine with the older hierarchy.
        const QList<QByteArray> fields = line.split(':');
        if (fields.size() >= 3 && (fields.at(0) == "0" || fields.at(1) == "name=systemd")) {
            return QString::fromUtf8(fields.mid(2).join(':'));
        }
    }
    return {};
}

ProcessClues processClues(qint64 processId)
{
    ProcessClues clues;
    if (processId <= 0) {
        return clues;
    }
    clues.executable = QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(processId));
    // The kernel's word for a program that an upgrade has replaced while it runs.
    constexpr QLatin1String deleted(" (deleted)");
    if (clues.executable.endsWith(deleted)) {
        clues.executable.chop(deleted.size());
    }
    const QList<QByteArray> words = processFile(processId, "cmdline").split('\0');
    for (const QByteArray& word : words.first(std::min(words.size(), mostWords))) {
        clues.words.append(QFile::decodeName(word));
    }
    WindowMatching::readEnvironment(processFile(processId, "environ"),
                                    processId,
                                    ::getsid(static_cast<pid_t>(processId)),
                                    clues);
    clues.controlGroup = controlGroupOf(processId);
    return clues;
}

} // namespace Tavik
