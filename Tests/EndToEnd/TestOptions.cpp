// SPDX-License-Identifier: MIT
#include <TavikLauncher/Shell/BuildOptions.h>

#include <QFile>

#include <utility>

namespace Tavik {

namespace {

/// A session that refuses until there is a file of that path.
class WithheldPermission final : public AccessibilityPermission
{
public:
    WithheldPermission(PlatformOptions::Permission real, QString until)
        : m_real(std::move(real))
        , m_until(std::move(until))
    { }

    [[nodiscard]] bool isTrusted() const override
    {
        return m_real->isTrusted() && QFile::exists(m_until);
    }
    [[nodiscard]] Obstacle obstacle() const override
    {
        return {.limit = QStringLiteral("This desktop is a test."),
                .remedy = QStringLiteral("Make the file."),
                .hasSettings = false};
    }
    void prompt() override { }
    void openSettings(std::function<void()> failed) override { failed(); }

private:
    PlatformOptions::Permission m_real;
    QString m_until;
};

} // namespace

/// The journeys serve a feed of their own, signed with a key made for the occasion, and give the
/// permission when they wish.
PlatformOptions buildOptions()
{
    PlatformOptions options{.updates = {.feedUrl = qEnvironmentVariable("TAVIK_TEST_FEED"),
                                        .publicKey = qEnvironmentVariable("TAVIK_TEST_KEY"),
                                        .version = qEnvironmentVariable("TAVIK_TEST_VERSION")},
                            .replacePermission = {}};
    const QString until = qEnvironmentVariable("TAVIK_TEST_PERMISSION");
    if (!until.isEmpty()) {
        options.replacePermission = [until](PlatformOptions::Permission real) {
            return std::make_unique<WithheldPermission>(std::move(real), until);
        };
    }
    return options;
}

} // namespace Tavik
