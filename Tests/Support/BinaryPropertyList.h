// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdlib>
#include <plist/plist.h>

namespace Tavik::Test {

/// The binary form of a property list in XML.
inline QByteArray binaryPropertyList(const QByteArray& xml)
{
    plist_t node = nullptr;
    plist_from_xml(xml.constData(), static_cast<uint32_t>(xml.size()), &node);
    char* bytes = nullptr;
    uint32_t length = 0;
    plist_to_bin(node, &bytes, &length);
    const QByteArray result(bytes, static_cast<qsizetype>(length));
    std::free(bytes);
    plist_free(node);
    return result;
}

} // namespace Tavik::Test
