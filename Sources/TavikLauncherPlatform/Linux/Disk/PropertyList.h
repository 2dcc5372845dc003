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

    /// Absent unless `bytes` are a property list, XML or binary, with a dictionary at its root, and
    /// within PropertyListBounds.
    [[nodiscard]] static std::optional<PropertyList> fromBytes(const QByteArray& bytes);

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
