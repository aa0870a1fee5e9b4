#include "tests/dialogs/CondDialog.h"

#include "grid/SpreadGrid.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/Controls.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

const QString CondDialog::mixedText = u"OP/A1,79=1-3,10/5,MODE=1"_s;

void CondDialog::SetUp()
{
    useEnglish();
}

bool CondDialog::show(
    const QString &openedText, qint16 openedCount, const std::function<void()> &act, const QString &pr)
{
    text = openedText;
    count = openedCount;
    whileShown(dialog, act);
    return dialog.ShowPrCond(pr, count, text);
}

SpreadGrid &CondDialog::grid(int kind)
{
    return control<SpreadGrid>(dialog, u"vaspdCond(%1)"_s.arg(kind));
}

QStringList CondDialog::rows(int kind)
{
    return rowsOf(grid(kind));
}

QString CondDialog::label(const QString &name)
{
    return control<QLabel>(dialog, name).text();
}

bool CondDialog::canDelete(int kind)
{
    return control<QPushButton>(dialog, u"cmdDell(%1)"_s.arg(kind)).isEnabled();
}

void CondDialog::add(int kind)
{
    click(dialog, u"cmdAdd(%1)"_s.arg(kind));
}

void CondDialog::remove(int kind)
{
    click(dialog, u"cmdDell(%1)"_s.arg(kind));
}

void CondDialog::ok()
{
    click(dialog, u"cmdOK"_s);
}

void CondDialog::cancel()
{
    click(dialog, u"cmdCancel"_s);
}
