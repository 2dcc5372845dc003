// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/BuildUpdateSource.h>

namespace Tavik {

/// The journeys serve a feed of their own, signed with a key made for the occasion.
UpdateSource buildUpdateSource()
{
    return {.feedUrl = qEnvironmentVariable("TAVIK_TEST_FEED"),
            .publicKey = qEnvironmentVariable("TAVIK_TEST_KEY"),
            .version = qEnvironmentVariable("TAVIK_TEST_VERSION")};
}

} // namespace Tavik
