// SPDX-License-Identifier: MIT
#include <TavikLauncher/Languages/Languages.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <memory>

namespace Tavik::Languages {

using namespace Qt::StringLiterals;

QStringList all()
{
    return {u"de"_s, u"es"_s, u"fr"_s, u"ja"_s};
}

QString chosen(const QStringList& wanted)
{
    for (const QString& name : wanted) {
        const QString language = name.left(name.indexOf(u'-')).toLower();
        // Whoever wants English before another language must not get that because English has no
        // catalog.
        if (language == u"en"_s || language == u"c"_s) {
            break;
        }
        if (all().contains(language)) {
            return language;
        }
    }
    return {};
}

void speak(QCoreApplication& application, const QString& language)
{
    if (language.isEmpty()) {
        return;
    }
    const QString toolkit = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    for (const QString& file :
         {toolkit + u"/qtbase_"_s + language, u":/languages/tavik-launcher_"_s + language}) {
        auto catalog = std::make_unique<QTranslator>();
        if (catalog->load(file)) {
            catalog->setParent(&application);
            QCoreApplication::installTranslator(catalog.release());
        }
    }
}

} // namespace Tavik::Languages
