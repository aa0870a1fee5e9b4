#include "desktop/PrintSetupDialog.h"

#include "desktop/FileDialog.h"
#include "desktop/PlainMessages.h"
#include "runtime/FileName.h"

#include <QFileDialog>
#include <QFileInfo>

using namespace Qt::StringLiterals;

bool printSetupTakesFiles()
{
#ifdef Q_OS_WIN
    return false;
#else
    return true;
#endif
}

QString askForPdfName(QWidget *parent, const QString &title, const QString &fileName)
{
    QFileDialog dialog(parent, title, QFileInfo(fileName).absolutePath(), u"PDF (*.pdf)"_s);
    dialog.setObjectName(u"dlgPdfSetup"_s);
    new PlainMessages(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(u"pdf"_s);
    dialog.selectFile(QFileInfo(fileName).fileName());
    widenForColumns(dialog);
    return dialog.exec() == QDialog::Accepted ? fileNameFromQt(dialog.selectedFiles().constFirst()) : QString();
}
