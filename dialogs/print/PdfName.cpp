#include "dialogs/print/PdfName.h"

#include "runtime/FileName.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

QString pdfFileName(const QString &title)
{
    // A PDF file is Qt's to write, which cannot use names that are no UTF-8.
    const QFileInfo document(shownFileName(title));
    const bool isUsable = document.isAbsolute() && shownFileName(QFileInfo(title).path()) == QFileInfo(title).path();
    const QString folder = isUsable ? document.absolutePath() : QDir::homePath();
    return folder + u'/' + document.completeBaseName() + u".pdf"_s;
}
