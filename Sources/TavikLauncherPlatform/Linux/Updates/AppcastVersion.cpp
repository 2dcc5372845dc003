// SPDX-License-Identifier: MIT
#include <TavikLauncherPlatform/Linux/Updates/AppcastVersion.h>

#include <QString>

namespace Tavik::AppcastVersion {

namespace {

enum class Kind {
    word,
    number,
};

/// A number without leading zeros (0 is empty), or a word.
struct Part
{
    Kind kind = Kind::number;
    QStringView text;
};

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isSeparator(QChar character)
{
    return character.isSpace() || character.isPunct() || character.isSymbol();
}

/// Takes the next part off the front; at the end it is a 0.
Part takePart(QStringView& version)
{
    while (!version.isEmpty() && isSeparator(version.front())) {
        version = version.sliced(1);
    }
    if (version.isEmpty()) {
        return {};
    }
    const bool isNumber = isDigit(version.front());
    qsizetype length = 1;
    while (length < version.size() && isDigit(version[length]) == isNumber
           && !isSeparator(version[length])) {
        ++length;
    }
    QStringView text = version.first(length);
    version = version.sliced(length);
    while (isNumber && text.startsWith(u'0')) {
        text = text.sliced(1);
    }
    return {.kind = isNumber ? Kind::number : Kind::word, .text = text};
}

std::weak_ordering compareParts(const Part& left, const Part& right)
{
    if (left.kind != right.kind) {
        return left.kind == Kind::word ? std::weak_ordering::less : std::weak_ordering::greater;
    }
    if (left.kind == Kind::number && left.text.size() != right.text.size()) {
        return left.text.size() <=> right.text.size();
    }
    return left.text.compare(right.text) <=> 0;
}

QStringView withoutBuildName(QStringView version)
{
    return version.left(version.indexOf(u'-'));
}

} // namespace

std::weak_ordering compare(QStringView left, QStringView right)
{
    left = withoutBuildName(left);
    right = withoutBuildName(right);
    while (!left.isEmpty() || !right.isEmpty()) {
        const std::weak_ordering order = compareParts(takePart(left), takePart(right));
        if (std::is_neq(order)) {
            return order;
        }
    }
    return std::weak_ordering::equivalent;
}

} // namespace Tavik::AppcastVersion
