// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/UpdateDebugLog.h>
#include <TavikLauncherPlatform/FileManager.h>

namespace Tavik {

using namespace Qt::StringLiterals;

void logUpdateDebug(const FileManager& fileManager, const QString& message)
{
    if (qEnvironmentVariableIsSet("TAVIK_UPDATE_DEBUG")) {
        static_cast<void>(
            fileManager.appendToFile(u"/tmp/tavik-update.log"_s, (message + u'\n').toUtf8()));
    }
}

} // namespace Tavik
