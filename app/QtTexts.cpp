#include "app/QtTexts.h"

#include "app/services/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

void loadQtTexts()
{
    if (LanguageBase != JapaneseBase) {
        return;
    }
    for (const QString &catalogue : {u"qtbase_ja"_s, u"qt_help_ja"_s}) {
        auto *translator = new QTranslator(qApp);
        if (translator->load(catalogue, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            QCoreApplication::installTranslator(translator);
        }
    }
}
