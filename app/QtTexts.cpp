#include "app/QtTexts.h"

#include "app/services/Language.h"
#include "resources/QtTextTable.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

constexpr auto name = "qtTexts"_L1;

void install(QTranslator &translator)
{
    translator.setObjectName(name);
    QCoreApplication::installTranslator(&translator);
}

} // namespace

void loadQtTexts()
{
    qDeleteAll(qApp->findChildren<QTranslator *>(name, Qt::FindDirectChildrenOnly));
    if (LanguageBase != JapaneseBase) {
        return;
    }
    install(*new QtTextTable(qApp)); // first, so that it is asked last
    for (const QString &catalogue : {u"qtbase_ja"_s, u"qt_help_ja"_s}) {
        auto *translator = new QTranslator(qApp);
        if (translator->load(catalogue, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            install(*translator);
        }
    }
}
