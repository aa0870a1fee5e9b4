// tabrix-print: does what "tabrix-tool print" is asked for. It needs no display.

#include "desktop/DisplaylessProgram.h"
#include "runtime/CommandLine.h"
#include "runtime/StandardStreams.h"
#include "tool/Program.h"
#include "tool/print/PdfPrint.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

/// What Qt remarks on a platform without a display is nothing that users asked for.
void dropRemark(QtMsgType, const QMessageLogContext &, const QString &)
{
}

} // namespace

int main(int argc, char **argv)
{
    needNoDisplay();
    qInstallMessageHandler(dropRemark);
    prepareStandardStreams();
    const QStringList arguments = commandLineArguments(argc, argv);
    int own = 1; // all others are the command's, and none of them Qt's
    const QApplication application(own, argv);
    QApplication::setApplicationName(u"Tabrix"_s); // which PDF files name as their creator
    QApplication::setApplicationVersion(QStringLiteral(TABRIX_VERSION));
    setPrintRoutine(printAsPdf);
    return runProgram(arguments);
}
