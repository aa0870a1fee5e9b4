#include "dialogs/PrintCommand.h"

#include "dialogs/DocumentPrinter.h"
#include "dialogs/PdfName.h"
#include "dialogs/frmPrint.h"
#include "platform/CurrentPrinter.h"
#include "platform/PlainCaption.h"
#include "platform/PlainMessages.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QPrinter>

using namespace Qt::StringLiterals;

namespace {

QString askPdfName(QWidget *parent, const QString &title)
{
    const QString chosen = CurrentPrinter::takeChosenFile();
    const QString preset = chosen.isEmpty() ? pdfFileName(title) : chosen;
    QFileDialog dialog(parent, plainTitle(title), QFileInfo(preset).absolutePath(), u"PDF (*.pdf)"_s);
    dialog.setObjectName(u"dlgPdfName"_s);
    new PlainMessages(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(u"pdf"_s);
    dialog.selectFile(QFileInfo(preset).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

} // namespace

void printDocument(QWidget *parent, SpreadGrid &grid, int docNo, const QString &title)
{
    bool isConfirmed = false;
    frmPrint(title, parent).PrintShow(grid, isConfirmed);
    if (!isConfirmed) {
        return;
    }
    DocumentPrinter document(parent, grid, docNo, title);
    if (CurrentPrinter::isPresent()) {
        document.toPrinter(CurrentPrinter::printer());
        return;
    }
    const QString fileName = askPdfName(parent, title);
    if (!fileName.isEmpty()) {
        document.toPdf(fileName, CurrentPrinter::printer().pageLayout());
    }
}
