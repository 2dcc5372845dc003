// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/LaunchEnvironment.h>

#include <QFile>
#include <QProcessEnvironment>

#include <array>

namespace Tavik::LaunchEnvironment {

namespace {

constexpr auto ownVariables = std::to_array<const char*>({
    "APPDIR",
    "APPIMAGE",
    "ARGV0",
    "BAMF_DESKTOP_FILE_HINT",
    "DBUS_STARTER_ADDRESS",
    "DBUS_STARTER_BUS_TYPE",
    "DESKTOP_AUTOSTART_ID",
    "DESKTOP_STARTUP_ID",
    "GIO_LAUNCHED_DESKTOP_FILE",
    "GIO_LAUNCHED_DESKTOP_FILE_PID",
    "INVOCATION_ID",
    "JOURNAL_STREAM",
    "LISTEN_FDNAMES",
    "LISTEN_FDS",
    "LISTEN_PID",
    "MANAGERPID",
    "NOTIFY_SOCKET",
    "OWD",
    "SYSTEMD_EXEC_PID",
    "XDG_ACTIVATION_TOKEN",
});

QByteArray withoutFoldersBelow(const QByteArray& paths, const QByteArray& root)
{
    QByteArrayList kept;
    for (const QByteArray& path : paths.split(':')) {
        if (path != root && !path.startsWith(root + '/')) {
            kept.append(path);
        }
    }
    return kept.join(':');
}

} // namespace

Variables parse(const QByteArray& block)
{
    Variables variables;
    for (const QByteArray& line : block.split('\0')) {
        const qsizetype equals = line.indexOf('=');
        if (equals > 0) {
            variables.insert(line.left(equals), line.mid(equals + 1));
        }
    }
    return variables;
}

Variables atStart()
{
    // The kernel keeps the block that the program was started with; `setenv` does not reach it.
    QFile file(QStringLiteral("/proc/self/environ"));
    Variables variables = file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
        ? parse(file.readAll())
        : Variables();
    if (variables.isEmpty()) {
        for (const QString& line : QProcessEnvironment::systemEnvironment().toStringList()) {
            variables.insert(parse(line.toLocal8Bit()));
        }
    }
    return variables;
}

Variables forOthers(Variables variables)
{
    const QByteArray imageRoot = variables.value("APPDIR");
    if (imageRoot.startsWith('/') && variables.contains("APPIMAGE")) {
        const QByteArrayList names = variables.keys();
        for (const QByteArray& name : names) {
            const QByteArray value = variables.value(name);
            if (!value.contains(imageRoot)) {
                continue;
            }
            const QByteArray kept = withoutFoldersBelow(value, imageRoot);
            if (kept.isEmpty()) {
                variables.remove(name);
            } else {
                variables.insert(name, kept);
            }
        }
    }
    for (const char* name : ownVariables) {
        variables.remove(name);
    }
    return variables;
}

} // namespace Tavik::LaunchEnvironment
