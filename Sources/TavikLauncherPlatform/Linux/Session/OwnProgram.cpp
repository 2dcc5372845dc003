// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/OwnProgram.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace Tavik::OwnProgram {

using namespace Qt::StringLiterals;

namespace {

const QString name = u"tavik-launcher"_s;

/// What the name alone starts, without links; empty for nothing. A folder that depends on where one
/// is does not count: that is elsewhere for whoever reads the line.
QString found(const QString& searchPath)
{
    for (const QString& folder : searchPath.split(u':')) {
        const QFileInfo candidate(folder + u'/' + name);
        if (folder.startsWith(u'/') && candidate.isFile() && candidate.isExecutable()) {
            return candidate.canonicalFilePath();
        }
    }
    return {};
}

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control;
}

/// Whether it means nothing but itself to any reader.
bool isPlain(QChar character)
{
    return character.unicode() < 0x80
        && (character.isLetterOrNumber() || u"/._-+:@"_s.contains(character));
}

} // namespace

Surroundings Surroundings::ofProcess()
{
    return {.image = qEnvironmentVariable("APPIMAGE"),
            .mountPoint = qEnvironmentVariable("APPDIR"),
            .program = QCoreApplication::applicationFilePath(),
            .searchPath = u"/usr/local/bin:/usr/bin:/bin"_s};
}

QString image(const Surroundings& surroundings)
{
    const QString mountPoint = QFileInfo(surroundings.mountPoint).canonicalFilePath();
    const QString program = QFileInfo(surroundings.program).canonicalFilePath();
    const bool isInside = !mountPoint.isEmpty() && program.startsWith(mountPoint + u'/');
    return isInside && QFileInfo(surroundings.image).isAbsolute() ? surroundings.image : QString();
}

QString file(const Surroundings& surroundings)
{
    const QString outside = image(surroundings);
    return outside.isEmpty() ? surroundings.program : outside;
}

QString command(const Surroundings& surroundings)
{
    const QString path = file(surroundings);
    const QString target = QFileInfo(path).canonicalFilePath();
    const bool isFound = !target.isEmpty() && target == found(surroundings.searchPath);
    return isFound || std::ranges::any_of(path, isControl) ? name : shellWord(path);
}

QString shellWord(const QString& text)
{
    if (!text.isEmpty() && std::ranges::all_of(text, isPlain)) {
        return text;
    }
    // Without backslashes, which a configuration may undo before the shell; and the quotes end
    // behind a dollar, or the name behind it would be a variable of the configuration's.
    QString quoted = text;
    quoted.replace(u'\'', uR"('"'"')"_s);
    quoted.replace(u'$', u"$''"_s);
    return u'\'' + quoted + u'\'';
}

QString forHyprland(QString command)
{
    return command.replace(u'#', u"##"_s); // One begins a comment, in quotes as well.
}

} // namespace Tavik::OwnProgram
