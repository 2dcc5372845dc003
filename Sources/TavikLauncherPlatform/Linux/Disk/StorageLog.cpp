// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/StorageLog.h>

namespace Tavik {

Q_LOGGING_CATEGORY(storageLog, "tavik.storage")

}
