// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Applications/CompactText.h>

#include <QByteArray>

#include <cstring>

namespace Tavik {

namespace {

std::unique_ptr<char[]> copyOf(const char* utf8)
{
    if (!utf8 || *utf8 == '\0') {
        return nullptr;
    }
    const std::size_t size = std::strlen(utf8) + 1;
    auto copy = std::make_unique_for_overwrite<char[]>(size);
    std::memcpy(copy.get(), utf8, size);
    return copy;
}

} // namespace

CompactText::CompactText(const QString& text)
    : m_utf8(copyOf(text.toUtf8().constData()))
{ }

CompactText::CompactText(const CompactText& other)
    : m_utf8(copyOf(other.m_utf8.get()))
{ }

CompactText& CompactText::operator=(const CompactText& other)
{
    if (this != &other) {
        m_utf8 = copyOf(other.m_utf8.get());
    }
    return *this;
}

bool CompactText::operator==(const CompactText& other) const
{
    return isEmpty() || other.isEmpty() ? isEmpty() == other.isEmpty()
                                        : std::strcmp(m_utf8.get(), other.m_utf8.get()) == 0;
}

} // namespace Tavik
