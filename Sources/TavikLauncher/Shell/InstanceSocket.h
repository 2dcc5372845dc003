// SPDX-License-Identifier: MIT
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QString>

#include <functional>
#include <memory>

namespace Tavik {

/// Stands in for the session bus where there is none: a local socket in the user's runtime folder,
/// which only the user can reach. One line is sent per connection and answered with a byte.
class InstanceSocket
{
public:
    enum class Claim {
        first,
        taken,
        unavailable, ///< There is no runtime folder of the user's own.
    };

    InstanceSocket();
    ~InstanceSocket();
    InstanceSocket(const InstanceSocket&) = delete;
    InstanceSocket& operator=(const InstanceSocket&) = delete;

    /// On `first`, `onLine` is called with what other instances send from then on.
    [[nodiscard]] Claim claim();
    /// Hands a line to the instance that listens. False when none answers. Needs no application
    /// object.
    [[nodiscard]] static bool forward(const QString& line);

    std::function<void(const QString& line)> onLine;

private:
    void accept();

    std::unique_ptr<QLockFile> m_lock;
    QLocalServer m_server;
};

} // namespace Tavik
