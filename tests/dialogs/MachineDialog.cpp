#include "tests/dialogs/MachineDialog.h"

#include "dialogs/frmKisyuEdit.h"
#include "grid/SpreadGrid.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"

#include <QLineEdit>

using namespace Qt::StringLiterals;

MachineInfo sampleMachine()
{
    return {.Name = u"XT200-0.4K"_s,
        .TypeCode = u"XT"_s,
        .VCapacity = u"200"_s,
        .Code = u"1A"_s,
        .Capacity = {u"0.4"_s, u"3.7"_s, u"11"_s},
        .ICapacity = {u"2.5"_s, u"16.5"_s, u"46"_s},
        .Option = {u"A1"_s, u"B"_s},
        .Paramater = 7,
        .SoftWareVersion = u"1.0"_s};
}

void MachineDialog::SetUp()
{
    useEnglish();
    resetDocumentTables();
    growDocumentTables(docNo);
    info() = sampleMachine();
}

bool MachineDialog::show(const std::function<void()> &act)
{
    frmKisyuEdit opened(nullptr, info());
    dialog = &opened;
    whileShown(opened, act);
    opened.exec();
    dialog = nullptr;
    return opened.isChanged();
}

MachineInfo &MachineDialog::info()
{
    return MachineInfos[docNo];
}

QLineEdit &MachineDialog::box(const QString &name)
{
    return control<QLineEdit>(*dialog, name);
}

SpreadGrid &MachineDialog::grid()
{
    return control<SpreadGrid>(*dialog, u"vaSpread1"_s);
}

QStringList MachineDialog::rows()
{
    return rowsOf(grid());
}

void MachineDialog::ok()
{
    click(*dialog, u"cmdOK"_s);
}

void MachineDialog::cancel()
{
    click(*dialog, u"cmdCancel"_s);
}

void MachineDialog::retype(const QString &name, const QString &text)
{
    box(name).setFocus();
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    type(text);
}

void MachineDialog::add(const QString &capacity, const QString &current, Qt::Key end)
{
    whileNextIsShown([&](QDialog &) {
        type(capacity);
        press(Qt::Key_Tab);
        type(current);
        press(end);
    });
    click(*dialog, u"cmdAdd"_s);
}
