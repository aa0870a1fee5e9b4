#include "editor/frmVisualInf.h"

#include "app/Common.h"
#include "app/Language.h"
#include "app/Settings.h"
#include "editor/EditorFrame.h"
#include "editor/frmPrFile.h"
#include "platform/SpreadGrid.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr double listColumnWidth = 20; // character units

} // namespace

frmVisualInf::frmVisualInf(EditorFrame &frame, QWidget *parent)
    : QDialog(parent)
    , m_frame(frame)
    , m_lblInf(new QLabel(this))
    , m_grid(new SpreadGrid(this))
    , m_cmdOK(new QPushButton(this))
    , m_cmdCancel(new QPushButton(this))
{
    setObjectName(u"frmVisualInf"_s);
    build();
    load();
    connect(m_cmdOK, &QPushButton::clicked, this, &frmVisualInf::applyAndClose);
    connect(m_cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmVisualInf::build()
{
    m_lblInf->setObjectName(u"lblInf"_s);
    m_lblInf->setWordWrap(true);
    m_lblInf->setTextFormat(Qt::PlainText);
    m_grid->setObjectName(u"vaspdVisualInf"_s);
    m_cmdOK->setObjectName(u"cmdOK"_s);
    m_cmdOK->setDefault(true);
    m_cmdCancel->setObjectName(u"cmdCancel"_s);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_cmdOK);
    buttons->addWidget(m_cmdCancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_lblInf);
    layout->addWidget(m_grid, 1);
    layout->addLayout(buttons);
}

void frmVisualInf::load()
{
    const SpreadGrid &shown = m_frame.activeEditor()->vaspdParam();
    setWindowTitle(ResString(170));
    m_lblInf->setText(ResString(172));
    m_cmdOK->setText(ResString(1));
    m_cmdCancel->setText(ResString(2));
    m_grid->setColumnCount(1);
    m_grid->setText(1, 0, ResString(171));
    m_grid->setRowCount(shown.columnCount());
    for (int column = 1; column <= shown.columnCount(); ++column) {
        m_grid->setCellType(1, column, CellType::checkBox(shown.text(column, 0)));
        m_grid->setText(1, column, shown.isColumnShown(column) ? u"1"_s : u"0"_s);
    }
    PrepareDialog(*this);
    m_grid->setWidthInCharacters(1, listColumnWidth);
    m_grid->setActiveCell(1, 1);
}

void frmVisualInf::applyAndClose()
{
    m_grid->commitEdit();
    for (const frmPrFile *editor : m_frame.openEditors()) {
        SpreadGrid &grid = editor->vaspdParam();
        for (int column = 1; column <= grid.columnCount(); ++column) {
            const bool shown = m_grid->text(1, column) == u"1"_s;
            grid.setColumnShown(column, shown);
            ListVisualState[column - 1] = !shown;
        }
    }
    accept();
}
