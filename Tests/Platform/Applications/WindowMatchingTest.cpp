// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/WindowMatching.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <Support/Table.h>

namespace Tavik {

using namespace Test;
using namespace Qt::StringLiterals;

namespace {

struct Installed
{
    const char* id;
    const char* command;
    const char* windowClass = "";
    const char* more = ""; ///< Lines of the entry.
};

/// An installed desktop, the most important entries first.
constexpr Installed installed[] = {
    // Browsers, and web applications that run in their processes.
    {"google-chrome", "/usr/bin/google-chrome-stable %U"},
    {"chrome-aghbi-Default", "/opt/google/chrome/google-chrome --app-id=aghbi", "crx_aghbi"},
    {"chromium", "/usr/bin/chromium %U", "Chromium"},
    {"chrome-mail-Profile_1", "/usr/bin/chromium --app=https://mail", "mail.example.org"},
    {"firefox-esr", "firefox-esr %u", "firefox-esr"},
    {"FFPWA-01H", "firefoxpwa site launch 01H", "FFPWA-01H"},
    {"org.gnome.Epiphany", "epiphany %U"},
    {"org.gnome.Epiphany.WebApp_news",
     "epiphany --application-mode news",
     "org.gnome.Epiphany.WebApp_news"},
    // One program under a runtime that many share.
    {"code", "/usr/share/code/code %F", "Code"},
    {"code-url-handler", "/usr/share/code/code --open-url %U", "Code", "NoDisplay=true"},
    {"notes", "electron /usr/lib/notes/app.asar %U"},
    {"chat", "/opt/Chat/chat --no-sandbox %U"},
    {"jetbrains-idea", "/opt/idea/bin/idea.sh %f", "jetbrains-idea"},
    {"editor-java", "java -jar /opt/editor/editor.jar"},
    {"wine-Programs-Draw", "env WINEPREFIX=/w wine C:\\\\\\\\Draw\\\\\\\\draw.lnk", "draw.exe"},
    // Suites: one process, many applications.
    {"libreoffice-startcenter", "libreoffice %U", "libreoffice-startcenter"},
    {"libreoffice-writer", "libreoffice --writer %U", "libreoffice-writer"},
    {"libreoffice-calc", "libreoffice --calc %U", "libreoffice-calc"},
    {"gimp", "gimp-2.10 %U", "gimp"},
    // Packages that bring their own surroundings.
    {"org.mozilla.Thunderbird",
     "/usr/bin/flatpak run --command=thunderbird org.mozilla.Thunderbird"},
    {"com.spotify.Client", "/usr/bin/flatpak run com.spotify.Client %U", "spotify"},
    {"spotify", "/snap/bin/spotify-web"},
    {"vlc_vlc", "/snap/bin/vlc %U"},
    {"skype_skypeforlinux", "/snap/bin/skype %U"},
    // Terminals and what runs in them.
    {"xterm", "xterm", "XTerm", "Categories=System;TerminalEmulator;"},
    {"org.gnome.Terminal", "gnome-terminal", "Gnome-terminal", "Categories=TerminalEmulator;"},
    {"htop", "htop", "", "Terminal=true"},
    // Games that a launcher of games starts.
    {"steam", "/usr/bin/steam %U"},
    {"Half Way", "steam steam://rungameid/70"},
    // Scripts and odd ones.
    {"org.tool.Painter", "/usr/bin/painter %F"},
    {"painter-wrapper", "/opt/painter/start.sh"},
    {"meld", "meld %F"},
    {"gvim", "gvim %f"},
    {"vim-settings", "vim-settings", "GVIM"},
    {"unity-game", "/opt/game/run"},
    {"Sublime-Text", "/opt/sublime_text/sublime_text %F"},
    {"org.inkscape.Inkscape", "inkscape %F"},
    {"org.a.Twin", "twin-a"},
    {"org.b.Twin", "twin-b"},
    {"org.kde.dolphin", "dolphin %u"},
    {"hidden-viewer", "viewer", "Viewer", "NoDisplay=true"},
    {"viewer", "viewer", "Viewer"},
    {"draw", "/home/u/Draw.AppImage %F"},
    {"org.tavik.Launcher", "tavik-launcher"},
};

SharedDesktopEntry entry(const QString& path, const QString& id, const QByteArray& text)
{
    return std::make_shared<DesktopEntry>(
        DesktopEntryFile::parse("[Desktop Entry]\nType=Application\nName=X\n" + text, path, id));
}

const DesktopEntries& entries()
{
    static const DesktopEntries all = [] {
        QList<SharedDesktopEntry> list;
        for (const auto& [id, command, windowClass, more] : installed) {
            const QLatin1String name(id);
            const QByteArray text = QByteArray("Exec=") + command + '\n' + more
                + (*windowClass ? "\nStartupWMClass=" : "") + windowClass;
            list.append(entry(u"/apps/%1.desktop"_s.arg(name), name, text));
        }
        return DesktopEntries(list);
    }();
    return all;
}

QString text(const char* characters)
{
    return QString::fromUtf8(characters);
}

/// All that is known of a window; what is left out is unknown.
struct Clues
{
    const char* instance = "";
    const char* className = "";
    const char* hint = "";
    const char* executable = "";
    const char* words = "";
    const char* launched = ""; ///< The entry that this process, or its session, was started from.
    bool isLeader = true;
    const char* bamf = "";
    const char* image = ""; ///< That the process, or an ancestor of it, lies in.
    const char* unit = "";
    const char* started = ""; ///< By us, as this process.
    const char* session = ""; ///< By us, as the leader of its session.
};

QString identify(const Clues& clues)
{
    const QString path = WindowMatching::pathFor(
        {.applicationId = text(clues.hint),
         .instanceName = text(clues.instance),
         .className = text(clues.className)},
        {.program = text(clues.started),
         .session = text(clues.session),
         .ownControlGroup = u"/user.slice/app-org.tavik.Launcher-7.scope"_s},
        entries(),
        [&clues] {
            ProcessClues process{.executable = text(clues.executable),
                                 .words = text(clues.words).split(u' ', Qt::SkipEmptyParts),
                                 .controlGroup = text(clues.unit)};
            const QByteArray block = "A=1" + QByteArray(1, '\0') + "GIO_LAUNCHED_DESKTOP_FILE="
                + clues.launched + '\0' + "GIO_LAUNCHED_DESKTOP_FILE_PID="
                + (clues.isLeader ? "42" : "40") + '\0' + "BAMF_DESKTOP_FILE_HINT=" + clues.bamf
                + '\0' + "APPDIR=/tmp/.mount" + '\0' + "APPIMAGE=" + clues.image;
            WindowMatching::readEnvironment(block, 42, 40, process);
            return process;
        });
    return path.startsWith("/apps/"_L1) ? path.mid(6).chopped(8) : path;
}

} // namespace

class WindowMatchingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsOfRealProgramsAreRecognised_data()
    {
        const Table<Clues, QString> row;
        // clang-format off
        // Programs of one file.
        row("image", {.executable = "/tmp/.mount/usr/bin/viewer", .image = "/home/u/Draw.AppImage"}, u"draw"_s);
        row("what an image has started", {.executable = "/usr/bin/painter", .image = "/home/u/Draw.AppImage"}, u"org.tool.Painter"_s);
        // Two applications of one process.
        row("browser", {.instance = "google-chrome", .className = "Google-chrome", .executable = "/opt/google/chrome/chrome"}, u"google-chrome"_s);
        row("its web application", {.instance = "crx_aghbi", .className = "Google-chrome", .executable = "/opt/google/chrome/chrome"}, u"chrome-aghbi-Default"_s);
        row("browser that the web application started", {.instance = "google-chrome", .className = "Google-chrome", .launched = "/apps/chrome-aghbi-Default.desktop", .started = "/apps/chrome-aghbi-Default.desktop"}, u"google-chrome"_s);
        row("web application that the browser started", {.instance = "crx_aghbi", .className = "Google-chrome", .started = "/apps/google-chrome.desktop"}, u"chrome-aghbi-Default"_s);
        row("instance before class", {.instance = "mail.example.org", .className = "Chromium"}, u"chrome-mail-Profile_1"_s);
        row("page of no application", {.instance = "other.example.org", .className = "Chromium"}, u"chromium"_s);
        row("class of its own", {.instance = "Navigator", .className = "firefox-esr"}, u"firefox-esr"_s);
        row("class against program", {.instance = "FFPWA-01H", .className = "FFPWA-01H", .executable = "/usr/lib/firefox-esr/firefox-esr"}, u"FFPWA-01H"_s);
        row("hint of the toolkit", {.instance = "epiphany", .className = "Epiphany", .hint = "org.gnome.Epiphany.WebApp_news"}, u"org.gnome.Epiphany.WebApp_news"_s);
        row("startup class before hint", {.instance = "org.gnome.Epiphany.WebApp_news", .hint = "org.gnome.Epiphany"}, u"org.gnome.Epiphany.WebApp_news"_s);
        // Shared runtimes.
        row("shown entry before hidden one", {.instance = "code", .className = "Code"}, u"code"_s);
        row("hidden entry installed first", {.instance = "viewer-bin", .className = "Viewer"}, u"viewer"_s);
        row("runtime's script", {.instance = "electron", .executable = "/usr/lib/electron/electron", .words = "/usr/lib/electron/electron /usr/lib/notes/app.asar"}, u"notes"_s);
        row("runtime without a script", {.executable = "/usr/lib/electron/electron", .words = "electron"}, u""_s);
        row("program's path", {.instance = "x", .executable = "/opt/Chat/chat", .words = "/opt/Chat/chat --type=x"}, u"chat"_s);
        row("upper and lower case", {.instance = "sun-awt-X11-XFramePeer", .className = "jetbrains-Idea"}, u"jetbrains-idea"_s);
        row("archive of a virtual machine", {.className = "com-example-Main", .executable = "/usr/lib/jvm/bin/java", .words = "java -Xmx2g -jar /opt/editor/editor.jar"}, u"editor-java"_s);
        row("program of another system", {.instance = "draw.exe", .className = "Draw.exe", .executable = "/usr/lib/wine/wine64-preloader"}, u"wine-Programs-Draw"_s);
        row("another one there", {.instance = "calc.exe", .className = "calc.exe", .executable = "/usr/lib/wine/wine64-preloader", .words = "wine calc.exe"}, u""_s);
        // Suites.
        row("part of a suite", {.instance = "libreoffice", .className = "libreoffice-writer", .executable = "/usr/lib/libreoffice/program/soffice.bin"}, u"libreoffice-writer"_s);
        row("other part started by us", {.instance = "libreoffice", .className = "libreoffice-calc", .started = "/apps/libreoffice-startcenter.desktop"}, u"libreoffice-calc"_s);
        row("plainest of those with one program", {.executable = "/usr/bin/libreoffice"}, u"libreoffice-startcenter"_s);
        row("versioned program", {.instance = "gimp-2.10", .className = "Gimp-2.10", .executable = "/usr/bin/gimp-2.10"}, u"gimp"_s);
        // Units.
        row("sandbox", {.className = "Mail", .executable = "/app/lib/mail", .unit = "/app.slice/app-flatpak-org.mozilla.Thunderbird-4711.scope"}, u"org.mozilla.Thunderbird"_s);
        row("older sandbox", {.executable = "/app/lib/mail", .unit = "/flatpak-org.mozilla.Thunderbird-4711.scope"}, u"org.mozilla.Thunderbird"_s);
        row("startup class before ID, in a sandbox", {.instance = "spotify", .className = "Spotify", .unit = "/app-flatpak-org.mozilla.Thunderbird-1.scope"}, u"com.spotify.Client"_s);
        row("snap", {.executable = "/snap/vlc/1/usr/bin/vlc-bin", .unit = "/snap.vlc.vlc-01234567-89ab-cdef-0123-456789abcdef.scope"}, u"vlc_vlc"_s);
        row("snap with two names", {.className = "Odd", .unit = "/app.slice/snap.skype.skypeforlinux.01234567-89ab-cdef-0123-456789abcdef.scope"}, u"skype_skypeforlinux"_s);
        row("unit before session", {.unit = "/app-gnome-unity\\x2dgame-99.scope", .session = "/apps/painter-wrapper.desktop"}, u"unity-game"_s);
        row("service", {.executable = "/usr/libexec/files", .unit = "/app-org.kde.dolphin@0.service"}, u"org.kde.dolphin"_s);
        row("service of the bus", {.executable = "/usr/libexec/files", .unit = "/dbus-:1.20-org.kde.dolphin@0.service"}, u"org.kde.dolphin"_s);
        row("our own unit", {.executable = "/opt/game/bin/x86", .unit = "/user.slice/app-org.tavik.Launcher-7.scope"}, u""_s);
        row("program before unit", {.executable = "/usr/bin/meld", .unit = "/app-gnome-org.gnome.Terminal-3.scope"}, u"meld"_s);
        // Terminals.
        row("terminal", {.instance = "xterm", .className = "XTerm"}, u"xterm"_s);
        row("program in a terminal of ours", {.instance = "xterm", .className = "XTerm", .started = "/apps/htop.desktop"}, u"htop"_s);
        row("program in a desktop's terminal", {.instance = "xterm", .className = "XTerm", .unit = "/app-gnome-htop-12.scope"}, u"htop"_s);
        row("window from a terminal's shell", {.instance = "meld", .className = "Meld", .launched = "/apps/xterm.desktop", .isLeader = false}, u"meld"_s);
        row("unknown from a terminal's shell", {.className = "Odd", .launched = "/apps/xterm.desktop", .isLeader = false, .bamf = "/apps/org.gnome.Terminal.desktop"}, u""_s);
        // Games.
        row("game", {.instance = "steam_app_70", .className = "steam_app_70", .unit = "/app-gnome-steam-5.scope"}, u"Half Way"_s);
        row("their launcher", {.instance = "steamwebhelper", .className = "steam"}, u"steam"_s);
        // Scripts and odd windows.
        row("script of an interpreter", {.executable = "/usr/bin/python3.11", .words = "/usr/bin/python3 /usr/bin/meld"}, u"meld"_s);
        row("program under its called name", {.executable = "/usr/bin/vim.gtk3", .words = "gvim file"}, u"gvim"_s);
        row("child of a script that we started", {.className = "Odd", .executable = "/opt/painter/lib/real", .session = "/apps/painter-wrapper.desktop"}, u"painter-wrapper"_s);
        row("child of a script that the desktop started", {.executable = "/opt/painter/lib/real", .launched = "/apps/painter-wrapper.desktop", .isLeader = false}, u"painter-wrapper"_s);
        row("child that says who it is", {.instance = "painter", .className = "Painter", .session = "/apps/painter-wrapper.desktop"}, u"org.tool.Painter"_s);
        row("started by us, says nothing", {.executable = "/usr/bin/meld", .started = "/apps/unity-game.desktop"}, u"unity-game"_s);
        row("started by the desktop", {.executable = "/usr/bin/meld", .launched = "/apps/unity-game.desktop"}, u"unity-game"_s);
        row("ID before alike class", {.instance = "gvim", .className = "Gvim"}, u"gvim"_s);
        row("blank for dash", {.instance = "sublime_text", .className = "Sublime Text"}, u"Sublime-Text"_s);
        row("end of the ID", {.instance = "inkscape", .className = "Inkscape"}, u"org.inkscape.Inkscape"_s);
        row("end of two IDs", {.instance = "twin", .className = "Twin"}, u""_s);
        row("hint as a path", {.hint = "/apps/org.kde.dolphin.desktop"}, u"org.kde.dolphin"_s);
        row("application folder", {.className = "Odd", .executable = "/Applications/Out.app/Contents/Helpers/In.app/Contents/MacOS/x"}, u"/Applications/Out.app"_s);
        row("nothing at all", {}, u""_s);
        // clang-format on
    }

    void windowsOfRealProgramsAreRecognised()
    {
        const auto [clues, id] = fetch<Clues, QString>();
        QCOMPARE(identify(clues), id);
    }

    void processOfAContainerIsFoundOutside()
    {
        const qint64 own = QCoreApplication::applicationPid();
        QCOMPARE(processIdOutside(own, own), own);
        QCOMPARE(processIdOutside(4, 1), 4); // Another process has that number.
        QCOMPARE(processIdOutside(0, own), 0);
        QCOMPARE(processIdOutside(own, 0), own);
    }

    void upgradedProgramKeepsItsName()
    {
        QCOMPARE(processClues(QCoreApplication::applicationPid()).executable,
                 QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath());
        QTemporaryDir folder;
        const QString program = folder.filePath(u"sleeper"_s);
        QVERIFY(QFile::copy(u"/bin/sleep"_s, program));
        QProcess process;
        process.start(program, {u"20"_s});
        QVERIFY(process.waitForStarted() && QFile::remove(program));
        QTRY_COMPARE(processClues(process.processId()).executable,
                     QFileInfo(folder.path()).canonicalFilePath() + u"/sleeper"_s);
        process.kill();
        process.waitForFinished();
    }

    void alikeEntriesAreToldApart()
    {
        const DesktopEntries known(
            {entry(u"/org.a.shelf"_s, u"org.a.shelf"_s, "Exec=a\n"),
             entry(u"/Shelf"_s, u"Shelf"_s, "Exec=b\nStartupWMClass=Board\n"),
             entry(u"/shelf"_s, u"shelf"_s, "Exec=c\nStartupWMClass=board\n")});
        QCOMPARE(known.withId(u"shelf"_s)->path, u"/shelf"_s);
        QCOMPARE(known.withStartupClass(u"board"_s)->path, u"/shelf"_s);
        QCOMPARE(known.withSimilarStartupClass(u"BOARD"_s)->path, u"/Shelf"_s);
        QCOMPARE(known.withSimilarId(u"SHELF"_s)->path, u"/Shelf"_s); // More than an ID's end.
    }

    void entriesMaskOthersWithTheirIdentifier()
    {
        const DesktopEntries known({entry(u"/a/one"_s, u"one"_s, "Exec=one\n"),
                                    entry(u"/a/gone"_s, u"gone"_s, "Exec=x\nHidden=true\n"),
                                    entry(u"/a/damaged"_s, u"damaged"_s, ""),
                                    entry(u"/b/one"_s, u"one"_s, "Exec=other\n"),
                                    entry(u"/b/gone"_s, u"gone"_s, "Exec=gone\n"),
                                    entry(u"/b/damaged"_s, u"damaged"_s, "Exec=damaged\n")});
        QCOMPARE(known.withId(u"one"_s)->path, u"/a/one"_s);
        QVERIFY(!known.withId(u"gone"_s) && !known.withId(u"damaged"_s));
        QVERIFY(!known.withProgram(u"other"_s));
    }
};

} // namespace Tavik

QTEST_GUILESS_MAIN(Tavik::WindowMatchingTest)
#include "WindowMatchingTest.moc"
