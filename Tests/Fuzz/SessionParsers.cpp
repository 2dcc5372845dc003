// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/AppRequest.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayBindings.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayShortcuts.h>
#include <TavikLauncherPlatform/Linux/Desktops/SwayWindows.h>

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <Fuzz/Parsers.h>
#include <Support/Counting.h>
#include <array>
#include <memory>

namespace Tavik::Fuzz {

using namespace Qt::StringLiterals;

namespace {

/// A socket in the place of sway's.
class Server
{
public:
    Server() { require(m_server.listen(path()), "the socket is there"); }
    [[nodiscard]] QString path() const { return m_folder.filePath(u"sway"_s); }

    /// Sends the bytes to whoever has just connected, and has them read. The connection ends with
    /// what is returned.
    std::unique_ptr<QLocalSocket> tell(const QByteArray& bytes)
    {
        m_server.waitForNewConnection(1000);
        std::unique_ptr<QLocalSocket> connection(m_server.nextPendingConnection());
        require(connection != nullptr, "it connects");
        connection->write(bytes);
        do {
            QCoreApplication::processEvents();
        } while (connection->state() == QLocalSocket::ConnectedState
                 && connection->bytesToWrite() > 0);
        QCoreApplication::processEvents();
        return connection;
    }

private:
    QTemporaryDir m_folder;
    QLocalServer m_server;
};

/// The bytes as a message of the number that the first of them stands for; without that most of
/// what is made up would be refused for its length.
QByteArray message(const QByteArray& bytes)
{
    constexpr std::array<quint32, 6> types{0, 4, 0x80000000, 0x80000003, 0x80000005, 0x80000006};
    const auto choice = static_cast<std::size_t>(static_cast<uchar>(bytes.front()) - '0');
    if (choice >= types.size()) {
        return bytes;
    }
    const std::array<quint32, 2> head{static_cast<quint32>(bytes.size() - 1), types.at(choice)};
    return "i3-ipc" + QByteArray(reinterpret_cast<const char*>(head.data()), sizeof head)
        + bytes.sliced(1);
}

} // namespace

bool readBindings(const QByteArray& bytes)
{
    const SwayBindings bindings(QString::fromUtf8(bytes));
    constexpr qsizetype longest = 4096;
    bool isBound = false;
    for (quint64 modifiers = 0; modifiers <= ModifierFlags::all;
         modifiers += ModifierFlags::shift) {
        for (const KeyEvents::HotKey& hotKey :
             {KeyEvents::HotKey{.keyCode = {}, .modifierFlags = modifiers},
              KeyEvents::HotKey{.keyCode = quint16{36}, .modifierFlags = modifiers},
              KeyEvents::HotKey{
                  .keyCode = quint16{40}, .modifierFlags = modifiers, .label = u"K"_s},
              KeyEvents::HotKey{.keyCode = quint16{49}, .modifierFlags = modifiers}}) {
            const std::optional<QString> command = bindings.commandAt(hotKey);
            require(!command || (!command->isEmpty() && command->size() <= longest),
                    "a command has words, and an end");
            require(!command || !command->contains(u'\n'), "it is one line");
            isBound = isBound || command;
        }
    }
    return isBound;
}

bool readRequest(const QByteArray& bytes)
{
    const auto request = requestIn(QString::fromUtf8(bytes));
    if (!request) {
        return false;
    }
    require(request->argument.size() <= longestArgument
                && request->activation.token.size() <= longestActivation
                && request->activation.startupId.size() <= longestActivation,
            "it is short");
    require(requestIn(lineOf(*request)) == request, "it is written as it was read");
    return true;
}

bool readSway(const QByteArray& bytes)
{
    if (bytes.isEmpty()) {
        return false;
    }
    static Server server;
    SwayWindows windows(server.path());
    const auto toWindows = server.tell(message(bytes));
    SwayShortcuts shortcuts(server.path());
    int told = 0;
    const auto tell = Test::counting(told);
    (void)shortcuts.bind({.keyCode = {}, .modifierFlags = 0x140000},
                         {.pressed = tell, .released = tell, .joined = tell, .lost = {}});
    const auto toShortcuts = server.tell(message(bytes));
    for (const WindowId window : windows.windows()) {
        require(windows.factsOf(window).processId > 0, "a window has a program");
    }
    return told > 0 || !windows.windows().isEmpty();
}

} // namespace Tavik::Fuzz
