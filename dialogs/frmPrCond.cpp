#include "dialogs/frmPrCond.h"

#include "app/services/Language.h"
#include "dialogs/DialogGrid.h"
#include "dialogs/ListButton.h"
#include "dialogs/ParameterHeading.h"
#include "document/PrCondText.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>
#include <span>

using namespace Qt::StringLiterals;

namespace {

constexpr int helpContext = 60;
constexpr int modeCount = 8;

QStringList modeNames()
{
    QStringList names;
    for (int mode = 0; mode < modeCount; ++mode) {
        names << ResString(textAfter(Text::CondFirstMode, mode));
    }
    return names;
}

DialogGrid::Column relationColumn()
{
    return {u"=/<> "_s, 5, CellType::comboBox({u"="_s, u"<>"_s}, u"="_s)};
}

QList<DialogGrid::Column> columns(int kind)
{
    switch (kind) {
    case ParameterGrid:
        return {{u"Pr"_s, 5, CellType::integer(0, 999)}, relationColumn(), {u"Cond1"_s, 7, CellType::integer(0, 32767)},
            {u"Cond2"_s, 7, CellType::integer(0, 32767)}};
    case ModeGrid:
        return {relationColumn(), {u"Op mode"_s, 10, CellType::comboBox(modeNames(), modeNames().constFirst())}};
    default:
        return {relationColumn(), {u"Option"_s, 10, CellType::text()}};
    }
}

} // namespace

frmPrCond::frmPrCond(QWidget *parent)
    : EditDialog(parent, helpContext), m_heading(new ParameterHeading(this, u"lblCount"_s))
{
    auto *all = new QVBoxLayout;
    all->addLayout(m_heading);
    all->addLayout(createKinds(), 1);
    layOut(all, Resizing::ByUser);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *focused) { followFocus(focused); });
}

frmPrCond::~frmPrCond()
{
    disconnect(qApp, nullptr, this, nullptr); // its own lists lose the focus when they go
}

QLayout *frmPrCond::createKinds()
{
    auto *row = new QHBoxLayout;
    for (int kind = 0; kind < CondGridCount; ++kind) {
        createKind(kind);
        connectKind(kind);
        row->addWidget(m_kinds[kind].frame, static_cast<int>(columns(kind).size()));
    }
    connect(m_kinds[ParameterGrid].grid, &DialogGrid::cellsEdited, this, &frmPrCond::sortParameters);
    return row;
}

void frmPrCond::createKind(int kind)
{
    auto *frame = new QGroupBox(this);
    frame->setObjectName(elementName(u"Frame1"_s, kind));
    auto *grid = new DialogGrid(frame);
    grid->setObjectName(elementName(u"vaspdCond"_s, kind));
    grid->setRowKeys(true);
    auto *add = new ListButton(frame);
    add->setObjectName(elementName(u"cmdAdd"_s, kind));
    auto *remove = new ListButton(frame);
    remove->setObjectName(elementName(u"cmdDell"_s, kind));

    auto *inside = new QGridLayout(frame);
    inside->addWidget(grid, 0, 0, 1, 3);
    inside->addWidget(add, 1, 0);
    inside->addWidget(remove, 1, 1);
    inside->setColumnStretch(2, 1);
    inside->setRowStretch(0, 1);
    m_kinds[kind] = {frame, grid, add, remove};
}

void frmPrCond::connectKind(int kind)
{
    connect(m_kinds[kind].add, &QPushButton::clicked, this, [this, kind] { addRow(kind); });
    connect(m_kinds[kind].remove, &QPushButton::clicked, this, [this, kind] { removeRow(kind); });
    connect(m_kinds[kind].grid, &DialogGrid::rowRequested, this, [this, kind] { addRow(kind); });
    connect(m_kinds[kind].grid, &DialogGrid::removalRequested, this,
        [this, kind](int first, int last) { removeRows(kind, first, last); });
}

bool frmPrCond::ShowPrCond(const QString &pr, qint16 &count, QString &condText)
{
    QList<PrCondition> conditions = conditionsFromText(condText);
    conditions.resize(std::min<qsizetype>(conditions.size(), std::numeric_limits<qint16>::max()));
    m_result.count = static_cast<qint16>(conditions.size());
    load(pr, conditions);
    const bool confirmed = exec() == Accepted;
    if (!confirmed || m_result == PrCondResult{count, condText}) {
        return false;
    }
    count = m_result.count;
    condText = m_result.text;
    return true;
}

void frmPrCond::load(const QString &pr, const QList<PrCondition> &conditions)
{
    loadTexts(pr);
    const PrCondRows rows = rowsOfConditions(std::span(conditions.data(), size_t(conditions.size())), modeNames());
    for (int kind = 0; kind < CondGridCount; ++kind) {
        loadGrid(kind, rows[kind]);
    }
    m_kinds[ParameterGrid].grid->setFocus();
    giveAccessKeysTo(ParameterGrid);
    prepare(Text::CondTitle);
}

void frmPrCond::loadTexts(const QString &pr)
{
    m_heading->setTexts(pr, ResString(Text::CondCount));
    m_heading->value().setText(QString::number(m_result.count));
    for (int kind = 0; kind < CondGridCount; ++kind) {
        m_kinds[kind].frame->setTitle(ResString(textAfter(Text::CondParameters, kind)));
        m_kinds[kind].grid->setAccessibleName(withoutAccessKey(m_kinds[kind].frame->title()));
        m_kinds[kind].add->setText(ResString(Text::CondAdd));
        m_kinds[kind].remove->setText(ResString(Text::CondDelete));
    }
}

void frmPrCond::loadGrid(int kind, const QList<QStringList> &rows)
{
    m_kinds[kind].grid->layOut(columns(kind));
    m_kinds[kind].grid->setRows(rows);
    m_kinds[kind].remove->setEnabled(!rows.isEmpty());
}

void frmPrCond::addRow(int kind)
{
    DialogGrid &grid = *m_kinds[kind].grid;
    grid.commitEdit();
    grid.addRow();
    grid.setActiveCell(1, grid.rowCount()); // a new row is there to be filled in
    grid.setFocus();
    m_kinds[kind].remove->setEnabled(true);
}

void frmPrCond::removeRow(int kind)
{
    m_kinds[kind].grid->commitEdit();
    if (const int active = m_kinds[kind].grid->activeRow()) {
        removeRows(kind, active, active);
    }
}

void frmPrCond::removeRows(int kind, int first, int last)
{
    m_kinds[kind].grid->removeRows(first, last);
    m_kinds[kind].remove->setEnabled(m_kinds[kind].grid->rowCount() > 0);
}

void frmPrCond::followFocus(const QWidget *focused)
{
    for (int kind = 0; kind < CondGridCount; ++kind) {
        if (focused && m_kinds[kind].frame->isAncestorOf(focused)) {
            giveAccessKeysTo(kind);
        }
    }
}

// The buttons of the three lists have the same access keys: they act on the list that was entered last.
void frmPrCond::giveAccessKeysTo(int kind)
{
    for (int other = 0; other < CondGridCount; ++other) {
        for (QPushButton *button : {m_kinds[other].add, m_kinds[other].remove}) {
            button->setShortcut(other == kind ? QKeySequence::mnemonic(button->text()) : QKeySequence());
        }
    }
}

void frmPrCond::sortParameters()
{
    DialogGrid &grid = *m_kinds[ParameterGrid].grid;
    grid.sortRows(1, grid.rowCount(), 1);
}

void frmPrCond::accept()
{
    for (const Kind &kind : m_kinds) {
        kind.grid->commitEdit();
    }
    rebuild();
    EditDialog::accept();
}

void frmPrCond::rebuild()
{
    PrCondRows rows;
    for (int kind = 0; kind < CondGridCount; ++kind) {
        rows[kind] = m_kinds[kind].grid->rows();
    }
    const PrCondResult rebuilt = conditionsOfRows(rows, modeNames());
    m_result.count = rebuilt.count;
    // Without a condition the earlier text stays, and so a caller sees it next to the count 0.
    if (!rebuilt.text.isEmpty()) {
        m_result.text = rebuilt.text;
    }
}
