#include "dialogs/PdfName.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QString pdfFileName(const QString &title)
{
    const QFileInfo document(title);
    const QString folder = document.isAbsolute() ? document.absolutePath() : QDir::homePath();
    return folder + u'/' + document.completeBaseName() + u".pdf"_s;
}
