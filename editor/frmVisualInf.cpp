#include "editor/frmVisualInf.h"

#include "app/services/Common.h"
#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "desktop/PlainCaption.h"
#include "dialogs/DialogGrid.h"

#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double listColumnWidth = 20; // character units
constexpr double besideCaption = 5; // for the box and the margins

/// The list's width in character units: more than usual where the captions need it.
double widthFor(const QStringList &captions)
{
    const QFontMetricsF metrics(userFont());
    double widest = 0;
    for (const QString &caption : captions) {
        widest = std::max(widest, metrics.horizontalAdvance(caption));
    }
    return std::max(listColumnWidth, widest / metrics.horizontalAdvance(u'0') + besideCaption);
}

} // namespace

frmVisualInf::frmVisualInf(const SpreadGrid &shown, const QList<SpreadGrid *> &grids, QWidget *parent)
    : EditDialog(parent), m_grids(grids), m_lblInf(newPlainLabel(u"lblInf"_s, this)), m_list(new DialogGrid(this))
{
    m_list->setObjectName(u"vaspdVisualInf"_s);
    auto *contents = new QVBoxLayout;
    contents->addWidget(m_lblInf);
    contents->addWidget(m_list, 1);
    layOut(contents, Resizing::ByUser);
    load(shown);
}

void frmVisualInf::load(const SpreadGrid &shown)
{
    m_lblInf->setText(ResString(Text::ColumnsPrompt));
    QStringList captions;
    QList<QStringList> states;
    for (int column = 1; column <= shown.columnCount(); ++column) {
        captions << shown.text(column, 0);
        states << QStringList{shown.isColumnShown(column) ? u"1"_s : u"0"_s};
    }
    m_list->layOut({{ResString(Text::ColumnsHeading), widthFor(captions), CellType::checkBox()}}, shown.columnCount());
    m_list->setAccessibleName(m_list->text(1, 0));
    m_list->setRows(states);
    for (int column = 1; column <= shown.columnCount(); ++column) {
        m_list->setCellType(1, column, CellType::checkBox(captions[column - 1]));
    }
    m_list->setFocus();
    prepare(Text::ColumnsTitle);
}

void frmVisualInf::accept()
{
    m_list->commitEdit();
    for (SpreadGrid *grid : m_grids) {
        for (int column = 1; column <= grid->columnCount(); ++column) {
            const bool shown = m_list->text(1, column) == u"1"_s;
            grid->setColumnShown(column, shown);
            ListVisualState[column - 1] = !shown;
        }
    }
    EditDialog::accept();
}
