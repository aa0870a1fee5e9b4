#include "editor/frmVisualInf.h"

#include "app/Common.h"
#include "app/Language.h"
#include "app/Settings.h"
#include "platform/SpreadGrid.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr double listColumnWidth = 20; // character units

} // namespace

frmVisualInf::frmVisualInf(const SpreadGrid &shown, const QList<SpreadGrid *> &grids, QWidget *parent)
    : QDialog(parent)
    , m_grids(grids)
    , m_lblInf(new QLabel(this))
    , m_list(new SpreadGrid(this))
    , m_cmdOK(new QPushButton(this))
    , m_cmdCancel(new QPushButton(this))
{
    setObjectName(u"frmVisualInf"_s);
    build();
    load(shown);
    connect(m_cmdOK, &QPushButton::clicked, this, &frmVisualInf::applyAndClose);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmVisualInf::build()
{
    m_lblInf->setObjectName(u"lblInf"_s);
    m_lblInf->setWordWrap(true);
    m_lblInf->setTextFormat(Qt::PlainText);
    m_list->setObjectName(u"vaspdVisualInf"_s);
    m_cmdOK->setObjectName(u"cmdOK"_s);
    m_cmdOK->setDefault(true);
    m_cmdCancel->setObjectName(u"cmdCancel"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdOK);
    buttons->addWidget(m_cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_lblInf);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
}

void frmVisualInf::load(const SpreadGrid &shown)
{
    ApplyUserFont(*this); // before the list has rows, so that they are as high as the font needs
    setWindowTitle(ResString(170));
    m_lblInf->setText(ResString(172));
    m_cmdOK->setText(ResString(1));
    m_cmdCancel->setText(ResString(2));
    m_list->setColumnCount(1);
    m_list->setText(1, 0, ResString(171));
    m_list->setAccessibleName(m_list->text(1, 0));
    m_list->setRowCount(shown.columnCount());
    for (int column = 1; column <= shown.columnCount(); ++column) {
        m_list->setCellType(1, column, CellType::checkBox(shown.text(column, 0)));
        m_list->setText(1, column, shown.isColumnShown(column) ? u"1"_s : u"0"_s);
    }
    m_list->setWidthInCharacters(1, listColumnWidth);
    m_list->setActiveCell(1, 1);
    m_list->setMinimumSize(m_list->sizeForRows(m_list->rowCount()));
    PrepareDialog(*this);
}

void frmVisualInf::applyAndClose()
{
    m_list->commitEdit();
    for (SpreadGrid *grid : m_grids) {
        for (int column = 1; column <= grid->columnCount(); ++column) {
            const bool shown = m_list->text(1, column) == u"1"_s;
            grid->setColumnShown(column, shown);
            ListVisualState[column - 1] = !shown;
        }
    }
    accept();
}
