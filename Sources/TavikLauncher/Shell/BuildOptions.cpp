// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/BuildOptions.h>

namespace Tavik {

PlatformOptions buildOptions()
{
    return {.updates = {.feedUrl = QStringLiteral(TAVIK_UPDATE_FEED_URL),
                        .publicKey = QStringLiteral(TAVIK_UPDATE_PUBLIC_KEY),
                        .version = QStringLiteral(TAVIK_VERSION),
                        .pageHosts
                        = QStringLiteral(TAVIK_UPDATE_PAGE_HOSTS).split(u' ', Qt::SkipEmptyParts)},
            .replacePermission = {}};
}

} // namespace Tavik
