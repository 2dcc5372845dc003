// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace Tavik {

/// A property list whose root is a dictionary. Keeps what it was read from: values of a kind that
/// the program does not use, dates among them, are written again as they were.
class PropertyList
{
public:
    PropertyList();
    ~PropertyList();
    PropertyList(PropertyList&&) noexcept;
    PropertyList& operator=(PropertyList&&) noexcept;

    /// Absent unless `xml` is a property list in XML with a dictionary at its root, and not of
    /// outlandish size or nesting.
    [[nodiscard]] static std::optional<PropertyList> fromXml(const QByteArray& xml);
    /// The largest text that `fromXml` takes, in bytes: room for tens of thousands of paths.
    static constexpr qsizetype mostBytes = 8 * 1024 * 1024;
    /// Whether `fromXml` takes a text for what it is, if it is well formed: not too large, nor
    /// nested too deep, nor with too many entities in one place.
    [[nodiscard]] static bool isModest(const QByteArray& xml);

    [[nodiscard]] QByteArray toXml() const;

    /// The value under `key` in the types of UserDefaults; invalid when there is none, or of a kind
    /// that these types do not know.
    [[nodiscard]] QVariant value(const QString& key) const;
    /// An invalid value removes the key.
    void setValue(const QString& key, const QVariant& value);

private:
    struct Free
    {
        void operator()(void* node) const;
    };
    using Node = std::unique_ptr<void, Free>; ///< plist_t is a pointer to void.

    explicit PropertyList(Node root);

    Node m_root;
};

} // namespace Tavik
