// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherCore/IndexedApp.h>

#include <QList>
#include <QStringList>

namespace Tavik::Test {

inline QStringList namesOf(const QList<IndexedApp>& apps)
{
    QStringList names;
    for (const IndexedApp& app : apps) {
        names.append(app.name());
    }
    return names;
}

} // namespace Tavik::Test
