#include "tests/dialogs/DialogOpeners.h"

#include "app/frmVersion.h"
#include "app/services/Common.h"
#include "app/services/Language.h"
#include "desktop/MessageBox.h"
#include "dialogs/frmCap.h"
#include "dialogs/frmFunc.h"
#include "dialogs/frmKisyuEdit.h"
#include "dialogs/frmPrCond.h"
#include "dialogs/print/frmPrint.h"
#include "document/DocumentTables.h"
#include "editor/ParameterGrid.h"
#include "editor/frmVisualInf.h"
#include "grid/SpreadGrid.h"
#include "print/PrintAbortBox.h"
#include "tests/dialogs/DialogDriver.h"

#include <ostream>

using namespace Qt::StringLiterals;

namespace {

void openFuncOf(const QString &file, const DialogAct &act)
{
    frmFunc dialog;
    qint16 code = 5;
    whileShown(dialog, [&] { act(dialog); });
    dialog.ShowFuncCode(u"79"_s, code, file);
}

} // namespace

void openFunc(const DialogAct &act)
{
    openFuncOf(u"xt200.inv"_s, act);
}

void openKqm3Func(const DialogAct &act)
{
    openFuncOf(u"kqm3.inv"_s, act);
}

void openPrCond(const DialogAct &act)
{
    frmPrCond dialog;
    qint16 count = 3;
    QString text = u"OP=A1,79=1-3,MODE=5"_s;
    whileShown(dialog, [&] { act(dialog); });
    dialog.ShowPrCond(u"79"_s, count, text);
}

void openKisyuEdit(const DialogAct &act)
{
    resetDocumentTables();
    growDocumentTables(1);
    MachineInfos[1] = {.Name = u"XT200-0.4K"_s,
        .TypeCode = u"XT"_s,
        .VCapacity = u"200"_s,
        .Code = u"1A"_s,
        .Capacity = {u"0.4"_s, u"3.7"_s},
        .ICapacity = {u"2.5"_s, u"16.5"_s},
        .Option = {u"A1"_s},
        .Paramater = 1,
        .SoftWareVersion = u"1.0"_s};
    frmKisyuEdit dialog(nullptr, MachineInfos[1]);
    whileShown(dialog, [&] { act(dialog); });
    dialog.exec();
}

void openCap(const DialogAct &act)
{
    frmCap dialog;
    QStringList values{u""_s, u""_s};
    whileShown(dialog, [&] { act(dialog); });
    dialog.ShowCapForm(values);
}

void openVersion(const DialogAct &act)
{
    frmVersion dialog(nullptr);
    dialog.CaptionSet();
    whileShown(dialog, [&] { act(dialog); });
    dialog.exec();
}

void openPrint(const DialogAct &act)
{
    SpreadGrid grid;
    layOutParameterGrid(grid, 5);
    frmPrint dialog(u"/home/user/parameters/a.inv"_s);
    whileShown(dialog, [&] { act(dialog); });
    bool isConfirmed = false;
    dialog.PrintShow(grid, isConfirmed);
}

void openVisibleColumns(const DialogAct &act)
{
    SpreadGrid grid;
    layOutParameterGrid(grid, 5);
    frmVisualInf dialog(grid, {&grid}, nullptr);
    whileShown(dialog, [&] { act(dialog); });
    dialog.exec();
}

void openMessage(const DialogAct &act)
{
    MessageBox::setButtonTexts(ResString(Text::Ok), ResString(Text::Yes), ResString(Text::No), ResString(Text::Cancel));
    whileNextIsShown(act);
    MessageBox::askYesNoCancel(nullptr,
        ResString(Text::SaveChangesQuestion, {u"|1"_s, u"/home/user/parameters/a.inv"_s}),
        u"/home/user/parameters/a.inv"_s);
}

void openPrintAbort(const DialogAct &act)
{
    PrintAbortBox box(ResString(Text::PrintAbort), ResString(Text::Cancel), userFont(), nullptr);
    box.setWindowTitle(u"a.inv"_s);
    whileShown(box, [&] { act(box); });
    box.exec();
}

void PrintTo(const OpenedDialog &dialog, std::ostream *out)
{
    *out << dialog.name;
}
