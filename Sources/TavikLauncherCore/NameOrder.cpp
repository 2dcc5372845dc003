// SPDX-License-Identifier: MIT
#include <TavikLauncherCore/NameOrder.h>

namespace Tavik {

namespace {

QCollator makeCollator()
{
    const QLocale system = QLocale::system().collation();
    // In the C locale the collator compares code units, which puts every accented letter after z.
    QCollator collator(system.language() == QLocale::C ? QLocale(QLocale::English) : system);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

} // namespace

const QCollator& nameCollator()
{
    thread_local const QCollator collator = makeCollator();
    return collator;
}

QString nameOrderLanguage()
{
    return nameCollator().locale().bcp47Name();
}

} // namespace Tavik
