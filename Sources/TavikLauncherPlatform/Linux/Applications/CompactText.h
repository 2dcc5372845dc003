// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

namespace Tavik {

/// A text that is kept thousands of times and seldom read: UTF-8 behind one pointer, a third of
/// what a `QString` takes, and nothing beside the pointer where there is none. It holds no null
/// characters.
class CompactText
{
public:
    CompactText() = default;
    /// Up to the first null character. Implicit, because it is the same text.
    CompactText(const QString& text); // NOLINT(google-explicit-constructor)
    CompactText(const CompactText& other);
    CompactText(CompactText&&) noexcept = default;
    CompactText& operator=(const CompactText& other);
    CompactText& operator=(CompactText&&) noexcept = default;
    ~CompactText() = default;

    [[nodiscard]] bool isEmpty() const { return !m_utf8; }
    [[nodiscard]] QString toString() const { return QString::fromUtf8(m_utf8.get()); }
    void clear() { m_utf8.reset(); }

    bool operator==(const CompactText& other) const;

private:
    std::unique_ptr<char[]> m_utf8; ///< Null-terminated; null for an empty text.
};

} // namespace Tavik
