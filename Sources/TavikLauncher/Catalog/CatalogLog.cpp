// SPDX-License-Identifier: MIT
#include <TavikLauncher/Catalog/CatalogLog.h>

namespace Tavik {

Q_LOGGING_CATEGORY(catalogLog, "tavik.catalog")

}
