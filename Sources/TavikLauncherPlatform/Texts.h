// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

namespace Tavik {

/// Says every text that people read in their language: `Texts::tr("Install")`. Without a catalog of
/// that language, or before the application exists, the text is what stands in the code. Any
/// thread.
///
/// A table of constants writes QT_TRANSLATE_NOOP("Tavik::Texts", "Install") and asks `tr` where the
/// text is shown. What is stored, sent, logged or printed for programs is no text.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Tavik::Texts)
};

} // namespace Tavik
