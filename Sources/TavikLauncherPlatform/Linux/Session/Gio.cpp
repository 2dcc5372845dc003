// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Session/Gio.h>

#include <QLibrary>

namespace Tavik {

namespace {

QLibrary& library()
{
    static QLibrary library(QStringLiteral("gio-2.0"), 0);
    return library;
}

} // namespace

Gio::Symbol::Symbol(const char* name)
    : m_address(library().resolve(name))
{
    if (!m_address) {
        qFatal("This GIO has no %s.", name);
    }
}

const Gio* Gio::load()
{
    static const bool isThere = library().load();
    if (!isThere) {
        return nullptr;
    }
    static const Gio gio;
    return &gio;
}

} // namespace Tavik
