// SPDX-License-Identifier: MIT
#include "app/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace tarnwick {

using namespace Qt::StringLiterals;

Translations::Translations(const QLocale& locale)
{
    const QStringList languages = locale.uiLanguages();
    for (const QString& name : languages) {
        const QLocale language(name);
        // English needs no file: whoever prefers it to a language that has one shall get it.
        if (language.language() == QLocale::English || language.language() == QLocale::C)
            return;
        if (!_own.load(language, u"tarnwick"_s, u"_"_s, u":/translations"_s))
            continue;
        // The one that is installed last is asked first. A translator goes out of use when it is destroyed.
        if (_qt.load(language, u"qtbase"_s, u"_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
            QCoreApplication::installTranslator(&_qt);
        QCoreApplication::installTranslator(&_own);
        return;
    }
}

} // namespace tarnwick
