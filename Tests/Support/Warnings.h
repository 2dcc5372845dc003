// SPDX-License-Identifier: MIT
#pragma once

#include <QRegularExpression>
#include <QTest>

namespace Tavik::Test {

/// The test fails unless a warning like that is logged before it ends.
inline void expectWarning(const QString& pattern)
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(pattern));
}

} // namespace Tavik::Test
