// SPDX-License-Identifier: MIT
#pragma once

#include <TavikLauncherPlatform/KeyEvents.h>

#include <QList>
#include <QString>

#include <optional>

namespace Tavik {

/// The keys that the user's own configuration of sway binds, read from the text of its main file.
/// Bindings of a mode count for nothing, as they hold only while the mode is chosen; files that it
/// includes are not read.
class SwayBindings
{
public:
    SwayBindings() = default;
    explicit SwayBindings(const QString& configuration);

    /// What the configuration has sway do at that shortcut; absent when nothing.
    [[nodiscard]] std::optional<QString> commandAt(const KeyEvents::HotKey& hotKey) const;

private:
    struct Binding
    {
        quint64 modifierFlags = 0; ///< Those of keys that stand beside others, too.
        QString key; ///< In lower case; a number where the binding is by place. Empty for none.
        QString command;
    };
    void addBinding(const QString& words);

    QList<Binding> m_bindings;
};

} // namespace Tavik
