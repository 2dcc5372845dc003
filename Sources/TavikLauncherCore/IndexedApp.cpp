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
    : m_name(std::move(name))
    , m_bundleIdentifier(std::move(bundleIdentifier))
    , m_path(std::move(path))
    , m_icon(std::move(icon))
{
    m_wordBeginnings.add(m_name);
}

IndexedApp IndexedApp::withOtherNames(QStringList otherNames) const
{
    IndexedApp app = *this;
    app.m_otherNames = std::move(otherNames);
    for (const QString& name : std::as_const(app.m_otherNames)) {
        app.m_wordBeginnings.add(name);
    }
    return app;
}

bool IndexedApp::operator==(const IndexedApp& other) const
{
    if (!areEquivalent(m_path, other.m_path) || !areEquivalent(m_name, other.m_name)) {
        return false;
    }
    if (m_bundleIdentifier.has_value() != other.m_bundleIdentifier.has_value()) {
        return false;
    }
    return !m_bundleIdentifier || areEquivalent(*m_bundleIdentifier, *other.m_bundleIdentifier);
}

} // namespace Tavik
