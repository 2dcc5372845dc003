// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/IndexedApp.h>

#include <utility>

namespace Tavik {

namespace {

/// Unicode canonical equivalence, without normalising texts that are already alike.
bool areEquivalent(const QString& left, const QString& right)
{
    return left == right
        || left.normalized(QString::NormalizationForm_C)
        == right.normalized(QString::NormalizationForm_C);
}

} // namespace

IndexedApp::IndexedApp(QString name,
                       std::optional<QString> bundleIdentifier,
                       QString path,
                       AppIcon icon)
    : m_shared(new Shared)
{
    m_shared->name = std::move(name);
    m_shared->bundleIdentifier = std::move(bundleIdentifier);
    m_shared->path = std::move(path);
    m_shared->icon = std::move(icon);
    m_wordBeginnings.add(this->name());
}

IndexedApp IndexedApp::withOtherNames(QString otherNames) &&
{
    m_wordBeginnings.add(otherNames);
    m_shared->otherNames = std::move(otherNames);
    return std::move(*this);
}

bool IndexedApp::operator==(const IndexedApp& other) const
{
    if (m_shared == other.m_shared) {
        return true;
    }
    const std::optional<QString>& own = bundleIdentifier();
    const std::optional<QString>& others = other.bundleIdentifier();
    return areEquivalent(path(), other.path()) && areEquivalent(name(), other.name())
        && own.has_value() == others.has_value() && (!own || areEquivalent(*own, *others));
}

} // namespace Tavik
