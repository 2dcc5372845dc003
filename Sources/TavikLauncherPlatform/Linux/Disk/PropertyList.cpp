// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Disk/PropertyList.h>
#include <TavikLauncherPlatform/Linux/Disk/PropertyListBounds.h>

#include <QStringList>

#include <cstdlib>
#include <limits>
#include <locale.h>
#include <plist/plist.h>
#include <utility>

namespace Tavik {

namespace {

struct FreeMemory
{
    void operator()(void* memory) const { std::free(memory); }
};

using Text = std::unique_ptr<char, FreeMemory>;
using Iterator = std::unique_ptr<void, FreeMemory>;

/// While it lives, this thread reads and writes numbers with a decimal point: the library goes by
/// the user's locale when it reads one.
class DecimalPoint
{
public:
    DecimalPoint()
        : m_previous(uselocale(plain()))
    { }
    ~DecimalPoint() { uselocale(m_previous); }
    DecimalPoint(const DecimalPoint&) = delete;
    DecimalPoint& operator=(const DecimalPoint&) = delete;

private:
    static locale_t plain()
    {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t m_previous;
};

QByteArray xmlOf(plist_t node)
{
    const DecimalPoint decimalPoint;
    char* xml = nullptr;
    uint32_t length = 0;
    plist_to_xml(node, &xml, &length);
    const Text text(xml);
    return xml ? QByteArray(xml, static_cast<qsizetype>(length)) : QByteArray();
}

/// The library hands out both -1 and the largest unsigned integer as the same number, and tells
/// them apart only in writing.
QVariant integerOf(plist_t node)
{
    uint64_t number = 0;
    plist_get_uint_val(node, &number);
    constexpr auto largest = static_cast<uint64_t>(std::numeric_limits<qlonglong>::max());
    if (number > largest && !xmlOf(node).contains("<integer>-")) {
        return {};
    }
    return static_cast<qlonglong>(number);
}

QVariant valueOf(plist_t node);

QVariantList listOf(plist_t node)
{
    plist_array_iter position = nullptr;
    plist_array_new_iter(node, &position);
    const Iterator iterator(position);
    QVariantList list;
    plist_t item = nullptr;
    for (plist_array_next_item(node, position, &item); item;
         plist_array_next_item(node, position, &item)) {
        list.append(valueOf(item));
    }
    return list;
}

QVariantMap mapOf(plist_t node)
{
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(node, &position);
    const Iterator iterator(position);
    QVariantMap map;
    while (true) {
        char* key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, position, &key, &item);
        const Text ownedKey(key);
        if (!item) {
            return map;
        }
        map.insert(QString::fromUtf8(key), valueOf(item));
    }
}

QVariant valueOf(plist_t node)
{
    uint64_t length = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t boolean = 0;
        plist_get_bool_val(node, &boolean);
        return boolean != 0;
    }
    case PLIST_UINT:
        return integerOf(node);
    case PLIST_REAL: {
        double real = 0;
        plist_get_real_val(node, &real);
        return real;
    }
    case PLIST_STRING: {
        const char* text = plist_get_string_ptr(node, &length);
        // Never a null string, so that an empty text stays a text.
        return text ? QString::fromUtf8(text, static_cast<qsizetype>(length)) : QLatin1String("");
    }
    case PLIST_DATA: {
        const char* bytes = plist_get_data_ptr(node, &length);
        return QByteArray(bytes, bytes ? static_cast<qsizetype>(length) : 0);
    }
    case PLIST_ARRAY:
        return listOf(node);
    case PLIST_DICT:
        return mapOf(node);
    default:
        return {};
    }
}

/// Later releases of the library tell apart what is signed and what is not.
template <typename Number> plist_t newInteger(Number number)
{
    if constexpr (requires { plist_new_int(number); }) {
        return plist_new_int(number);
    } else {
        return plist_new_uint(static_cast<uint64_t>(number));
    }
}

/// A node for `value`, or null when a property list has no place for its type.
plist_t newNode(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return plist_new_bool(value.toBool() ? 1 : 0);
    case QMetaType::Int:
    case QMetaType::LongLong:
        return newInteger(int64_t{value.toLongLong()});
    case QMetaType::Double:
        return plist_new_real(value.toDouble());
    case QMetaType::QString:
        return plist_new_string(value.toString().toUtf8().constData());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return plist_new_data(bytes.constData(), static_cast<uint64_t>(bytes.size()));
    }
    case QMetaType::QStringList:
    case QMetaType::QVariantList: {
        plist_t array = plist_new_array();
        for (const QVariant& element : value.toList()) {
            if (plist_t node = newNode(element)) {
                plist_array_append_item(array, node);
            }
        }
        return array;
    }
    case QMetaType::QVariantMap: {
        plist_t dictionary = plist_new_dict();
        const QVariantMap map = value.toMap();
        for (auto item = map.begin(); item != map.end(); ++item) {
            if (plist_t node = newNode(item.value())) {
                plist_dict_set_item(dictionary, item.key().toUtf8().constData(), node);
            }
        }
        return dictionary;
    }
    default:
        return nullptr;
    }
}

} // namespace

void PropertyList::Free::operator()(void* node) const
{
    plist_free(node);
}

PropertyList::PropertyList()
    : PropertyList(Node(plist_new_dict()))
{ }

PropertyList::PropertyList(Node root)
    : m_root(std::move(root))
{ }

PropertyList::~PropertyList() = default;
PropertyList::PropertyList(PropertyList&&) noexcept = default;
PropertyList& PropertyList::operator=(PropertyList&&) noexcept = default;

std::optional<PropertyList> PropertyList::fromBytes(const QByteArray& bytes)
{
    if (!PropertyListBounds::areKept(bytes)) {
        return std::nullopt;
    }
    const DecimalPoint decimalPoint;
    plist_t parsed = nullptr;
    // Each by its name: what tells them apart takes other formats too in later releases.
    const auto parse = PropertyListBounds::isBinary(bytes) ? plist_from_bin : plist_from_xml;
    parse(bytes.constData(), static_cast<uint32_t>(bytes.size()), &parsed);
    Node root(parsed);
    if (!root || plist_get_node_type(parsed) != PLIST_DICT) {
        return std::nullopt;
    }
    return PropertyList(std::move(root));
}

QByteArray PropertyList::toXml() const
{
    return xmlOf(m_root.get());
}

QVariant PropertyList::value(const QString& key) const
{
    plist_t node = plist_dict_get_item(m_root.get(), key.toUtf8().constData());
    return node ? valueOf(node) : QVariant();
}

void PropertyList::setValue(const QString& key, const QVariant& value)
{
    const QByteArray name = key.toUtf8();
    plist_t node = newNode(value);
    Q_ASSERT_X(node || !value.isValid(), "setValue", "a type that property lists do not know");
    if (node) {
        plist_dict_set_item(m_root.get(), name.constData(), node);
    } else if (plist_dict_get_item(m_root.get(), name.constData())) {
        plist_dict_remove_item(m_root.get(), name.constData());
    }
}

} // namespace Tavik
