#include "dialogs/print/PrintCommand.h"

#include "desktop/FileDialog.h"
#include "desktop/MessageBox.h"
#include "desktop/PlainCaption.h"
#include "desktop/PlainMessages.h"
#include "dialogs/print/DocumentPrinter.h"
#include "dialogs/print/PrintSettings.h"
#include "dialogs/print/frmPrint.h"
#include "print/CurrentPrinter.h"
#include "print/PdfFile.h"

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
    widenForColumns(dialog);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().constFirst() : QString();
}

} // namespace

void printDocument(QWidget *parent, SpreadGrid &grid, const MachineInfo &machine, const QString &title)
{
    bool isConfirmed = false;
    frmPrint(title, parent).PrintShow(grid, isConfirmed);
    if (!isConfirmed) {
        return;
    }
    DocumentPrinter document(parent, grid, machine, title);
    const QString missing = document.missingParameters(CurrentPrinter::printer());
    if (!missing.isEmpty()) {
        MessageBox::showExclamation(parent, missing, title);
        if (SharedPrintSettings.flags[0] != 1) {
            return; // nothing else is printed: no name is needed
        }
    }
    if (CurrentPrinter::isPresent()) {
        document.toPrinter(CurrentPrinter::printer());
        return;
    }
    const QString fileName = askPdfName(parent, title);
    if (!fileName.isEmpty()) {
        document.toPdf(fileName, CurrentPrinter::printer().pageLayout());
    }
}
