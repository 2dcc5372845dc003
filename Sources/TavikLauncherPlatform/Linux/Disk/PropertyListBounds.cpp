// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>

#include <QByteArrayMatcher>
#include <QtGlobal>

#include <optional>
#include <span>

namespace Tavik::PropertyListBounds {

namespace {

constexpr int maxDepth = 64;
constexpr quint64 maxNodes = 65'536;
constexpr qsizetype headerSize = 8; // "bplist00"
constexpr qsizetype trailerSize = 32;

/// Unfolds a binary property list without keeping anything, within a budget of nodes.
class BinaryWalk
{
public:
    explicit BinaryWalk(const QByteArray& bytes)
        : m_bytes(reinterpret_cast<const quint8*>(bytes.constData()),
                  static_cast<std::size_t>(bytes.size()))
    { }

    bool run()
    {
        if (m_bytes.size() < headerSize + trailerSize) {
            return false;
        }
        const std::size_t trailer = m_bytes.size() - trailerSize;
        m_offsetSize = m_bytes[trailer + 6];
        m_referenceSize = m_bytes[trailer + 7];
        m_objects = number(trailer + 8, 8).value_or(0);
        m_table = number(trailer + 24, 8).value_or(m_bytes.size());
        return visit(number(trailer + 16, 8).value_or(m_objects), 0);
    }

private:
    /// The big-endian number of `size` bytes at `offset`; absent outside of the data.
    [[nodiscard]] std::optional<quint64> number(quint64 offset, quint64 size) const
    {
        if (size < 1 || size > 8 || offset > m_bytes.size() || m_bytes.size() - offset < size) {
            return std::nullopt;
        }
        quint64 value = 0;
        for (const quint8 byte : m_bytes.subspan(offset, size)) {
            value = value << 8 | byte;
        }
        return value;
    }

    bool visit(quint64 object, int depth)
    {
        if (++m_nodes > maxNodes || depth > maxDepth || object >= m_objects
            || m_table > m_bytes.size()) {
            return false;
        }
        const auto position = number(m_table + object * m_offsetSize, m_offsetSize);
        const auto marker = position ? number(*position, 1) : std::nullopt;
        if (!marker) {
            return false;
        }
        constexpr quint64 asciiKind = 0x5;
        constexpr quint64 utf16Kind = 0x6;
        constexpr quint64 arrayKind = 0xA;
        constexpr quint64 setKind = 0xC;
        constexpr quint64 dictionaryKind = 0xD;
        const quint64 kind = *marker >> 4;
        const std::optional<Items> items = itemsAt(*position + 1, *marker & 0xF);
        switch (kind) {
        case asciiKind:
        case utf16Kind:
            return items && isOneText(*items, kind == asciiKind ? 1 : 2);
        case arrayKind:
        case setKind:
            return items && visitAll(*items, depth);
        case dictionaryKind:
            return items && items->count <= maxNodes
                && visitAll({items->count * 2, items->position}, depth);
        default:
            return true;
        }
    }

    struct Items
    {
        quint64 count = 0;
        quint64 position = 0; ///< Of the first.
    };
    /// Of an object whose marker has that count; a larger one stands in a number behind the marker.
    [[nodiscard]] std::optional<Items> itemsAt(quint64 position, quint64 count) const
    {
        constexpr quint64 countFollows = 0xF;
        if (count != countFollows) {
            return Items{count, position};
        }
        const auto countMarker = number(position, 1);
        const quint64 size = countMarker ? 1ULL << (*countMarker & 0x3) : 0;
        const auto longCount = number(position + 1, size);
        return longCount ? std::optional(Items{*longCount, position + 1 + size}) : std::nullopt;
    }

    /// A key with the end of a text inside of it has the library end the program.
    [[nodiscard]] bool isOneText(const Items& characters, quint64 size) const
    {
        for (quint64 index = 0; index < characters.count; ++index) {
            if (number(characters.position + index * size, size).value_or(0) == 0) {
                return false;
            }
        }
        return true;
    }

    bool visitAll(const Items& references, int depth)
    {
        if (references.count > 2 * maxNodes) {
            return false;
        }
        for (quint64 index = 0; index < references.count; ++index) {
            const auto reference
                = number(references.position + index * m_referenceSize, m_referenceSize);
            if (!reference || !visit(*reference, depth + 1)) {
                return false;
            }
        }
        return true;
    }

    std::span<const quint8> m_bytes;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_objects = 0;
    quint64 m_table = 0;
    quint64 m_nodes = 0;
};

/// The library recurses into containers when it writes and frees, so a deep nesting would exhaust
/// the stack. It cannot be deeper than there are opening tags.
bool isNestedSafely(const QByteArray& xml)
{
    constexpr int mostContainers = 2000;
    int containers = 0;
    for (const auto* tag : {"<dict", "<array"}) {
        const QByteArrayMatcher matcher(tag);
        for (auto at = matcher.indexIn(xml); at >= 0; at = matcher.indexIn(xml, at + 1)) {
            if (++containers > mostContainers) {
                return false;
            }
        }
    }
    return true;
}

/// The library takes quadratic time for the entities of one text: 0.3 s for 512 KiB that are full
/// of them, 12 s for 4 MiB. Of one such text this is room for 512 KiB, of ordinary ones for
/// millions.
bool isReadSwiftly(const QByteArray& xml)
{
    constexpr double mostWork = 5.5e10;
    double work = 0;
    double length = 0;
    double entities = 0;
    for (const char byte : xml) {
        if (byte == '<') {
            work += length * entities;
            length = 0;
            entities = 0;
        } else {
            length += 1;
            entities += byte == '&' ? 1 : 0;
        }
    }
    return work + length * entities <= mostWork;
}

} // namespace

bool areKept(const QByteArray& propertyList)
{
    if (propertyList.size() > mostBytes) {
        return false;
    }
    return isBinary(propertyList) ? BinaryWalk(propertyList).run()
                                  : isNestedSafely(propertyList) && isReadSwiftly(propertyList);
}

bool isBinary(const QByteArray& propertyList)
{
    return propertyList.startsWith("bplist");
}

} // namespace Tavik::PropertyListBounds
