// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tavik {

class FileManager;

/// Adds a line to "/tmp/tavik-update.log", if the environment has "TAVIK_UPDATE_DEBUG", with
/// whatever value. What cannot be written is not missed.
void logUpdateDebug(const FileManager& fileManager, const QString& message);

} // namespace Tavik
