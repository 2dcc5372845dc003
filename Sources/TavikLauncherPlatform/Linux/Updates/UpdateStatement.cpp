// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/UpdateSignature.h>
#include <TavikLauncherPlatform/Linux/Updates/UpdateStatement.h>

namespace Tavik {

QByteArray UpdateStatement::text() const
{
    return "Tavik Launcher update statement 1\nversion " + version.toUtf8() + "\nlength "
        + QByteArray::number(length) + "\nkind " + kind.toUtf8() + "\nprocessor "
        + processor.toUtf8() + "\nsha256 " + digest.toHex() + '\n';
}

std::optional<QByteArray> updateDigest(const QString& text)
{
    const QByteArray digits = text.trimmed().toLower().toLatin1();
    const QByteArray digest = QByteArray::fromHex(digits);
    const bool isDigest = digest.size() == UpdateSignature::digestSize && digest.toHex() == digits;
    return isDigest ? std::optional(digest) : std::nullopt;
}

} // namespace Tavik
