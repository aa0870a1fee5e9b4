#include "dialogs/frmKisyuEdit.h"

#include "app/services/Language.h"
#include "dialogs/DialogGrid.h"
#include "dialogs/KeyFrame.h"
#include "dialogs/ListButton.h"
#include "dialogs/PlainBox.h"
#include "dialogs/SelectAllBox.h"
#include "dialogs/frmCap.h"
#include "document/MachineInfoText.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int helpContext = 100;
constexpr int capacityMaximum = 3600;
// In the order in which the frames are made
constexpr Text frameTexts[] = {
    Text::MachineType, Text::MachineVoltageCode, Text::MachineCode, Text::MachineCapacities, Text::MachineOptions};

DialogGrid::Column capacityColumn(Text headingText)
{
    const QString heading = ResString(headingText);
    // In code page 932 a text has as many bytes as it is half-width places wide.
    const auto width = static_cast<double>(AnsiCodePage::page(932).byteLength(heading));
    return {heading, width, CellType::number(0, capacityMaximum)};
}

} // namespace

frmKisyuEdit::frmKisyuEdit(QWidget *parent, MachineInfo &machine) : EditDialog(parent, helpContext), m_machine(machine)
{
    createTypeFrame();
    m_voltage = createBox<SelectAllBox>(*createFrame(u"fraVoltage"_s), u"txtV"_s);
    m_code = createBox<SelectAllBox>(*createFrame(u"fraCode"_s), u"txtCode"_s);
    createCapacityFrame();
    m_options = createBox<PlainBox>(*createFrame(u"fraOption"_s), u"txtOption"_s);
    layOutFrames();
    load();
}

QGroupBox *frmKisyuEdit::createFrame(const QString &name)
{
    auto *frame = new KeyFrame(this);
    frame->setObjectName(name);
    new QHBoxLayout(frame);
    m_frames << frame;
    return frame;
}

template <typename Box>
QLineEdit *frmKisyuEdit::createBox(QGroupBox &frame, const QString &name)
{
    auto *box = new Box(&frame);
    box->setObjectName(name);
    frame.layout()->addWidget(box);
    connect(box, &QLineEdit::textChanged, this, &frmKisyuEdit::setChanged);
    return box;
}

void frmKisyuEdit::createTypeFrame()
{
    QGroupBox *frame = createFrame(u"fraType"_s);
    m_name = createBox<SelectAllBox>(*frame, u"txtKisyuName"_s);
    m_type = createBox<SelectAllBox>(*frame, u"txtKigo"_s);
}

void frmKisyuEdit::createCapacityFrame()
{
    QGroupBox *frame = createFrame(u"fraCap"_s);
    m_capacities = new DialogGrid(frame);
    m_capacities->setObjectName(u"vaSpread1"_s);
    m_capacities->setRowKeys(true);
    connect(m_capacities, &DialogGrid::cellsEdited, this, &frmKisyuEdit::setChanged);
    connect(m_capacities, &DialogGrid::rowRequested, this, &frmKisyuEdit::addCapacity);
    connect(m_capacities, &DialogGrid::removalRequested, this, &frmKisyuEdit::deleteCapacities);
    m_add = createButton(u"cmdAdd"_s, &frmKisyuEdit::addCapacity);
    m_delete = createButton(u"cmdDel"_s, &frmKisyuEdit::deleteCapacity);

    auto *buttons = new QVBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_delete);
    buttons->addStretch();
    auto *inside = static_cast<QHBoxLayout *>(frame->layout());
    inside->addWidget(m_capacities, 1);
    inside->addLayout(buttons);
}

QPushButton *frmKisyuEdit::createButton(const QString &name, void (frmKisyuEdit::*onClick)())
{
    auto *button = new ListButton(m_frames.constLast());
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, onClick);
    return button;
}

void frmKisyuEdit::layOutFrames()
{
    auto *grid = new QGridLayout;
    grid->addWidget(m_frames[0], 0, 0, 1, 2);
    grid->addWidget(m_frames[1], 1, 0);
    grid->addWidget(m_frames[2], 1, 1);
    grid->addWidget(m_frames[3], 2, 0, 1, 2);
    grid->addWidget(m_frames[4], 3, 0, 1, 2);
    grid->setRowStretch(2, 1);
    layOut(grid, Resizing::ByUser);
}

void frmKisyuEdit::load()
{
    loadTexts();
    loadBoxes(m_machine);
    loadCapacities(m_machine);
    m_name->setFocus();
    prepare(Text::MachineTitle);
    m_changed = false;
}

void frmKisyuEdit::loadTexts()
{
    for (int i = 0; i < m_frames.size(); ++i) {
        m_frames[i]->setTitle(ResString(frameTexts[i]));
    }
    m_capacities->setAccessibleName(withoutAccessKey(ResString(Text::MachineCapacities)));
    m_add->setText(ResString(Text::MachineAddCapacity));
    m_delete->setText(ResString(Text::MachineDeleteCapacity));
}

void frmKisyuEdit::loadBoxes(const MachineInfo &info)
{
    m_name->setText(info.Name);
    m_code->setText(info.Code);
    m_voltage->setText(info.VCapacity);
    m_type->setText(info.TypeCode);
    m_options->setText(optionText(info.Option));
}

void frmKisyuEdit::loadCapacities(const MachineInfo &info)
{
    QList<QStringList> rows;
    for (qsizetype i = 0; i < info.Capacity.size(); ++i) {
        rows << QStringList{info.Capacity[i], info.ICapacity.value(i)};
    }
    m_capacities->layOut({capacityColumn(Text::CapacityHeading), capacityColumn(Text::CurrentHeading)});
    m_capacities->setRows(rows);
}

void frmKisyuEdit::addCapacity()
{
    m_capacities->commitEdit();
    QStringList values(2);
    if (!frmCap(this).ShowCapForm(values)) {
        return;
    }
    m_capacities->addRow();
    const int row = m_capacities->rowCount();
    m_capacities->setText(1, row, values[0]);
    m_capacities->setText(2, row, values[1]);
    m_capacities->sortRows(1, row, 1);
    setChanged();
}

void frmKisyuEdit::deleteCapacity()
{
    m_capacities->commitEdit();
    const int active = m_capacities->activeRow();
    deleteCapacities(active, active);
}

// A machine always keeps one capacity.
void frmKisyuEdit::deleteCapacities(int first, int last)
{
    const int count = std::min(last - first + 1, m_capacities->rowCount() - 1);
    if (first < 1 || count < 1) {
        return;
    }
    m_capacities->removeRows(first, first + count - 1);
    setChanged();
}

QLineEdit *frmKisyuEdit::firstInvalidBox() const
{
    if (m_name->text().trimmed().isEmpty()) {
        return m_name;
    }
    if (!isMachineCode(m_code->text())) {
        return m_code;
    }
    return isNumeric(m_voltage->text()) ? nullptr : m_voltage;
}

void frmKisyuEdit::accept()
{
    m_capacities->commitEdit();
    if (QLineEdit *invalid = firstInvalidBox()) {
        invalid->setFocus();
        return;
    }
    if (m_changed) {
        collect(m_machine);
        m_isWritten = true;
    }
    EditDialog::accept();
}

void frmKisyuEdit::collect(MachineInfo &info) const
{
    info.Name = m_name->text();
    info.TypeCode = m_type->text();
    info.VCapacity = m_voltage->text();
    info.Code = m_code->text();
    info.Option = optionsOfText(m_options->text());
    collectCapacities(info);
}

void frmKisyuEdit::collectCapacities(MachineInfo &info) const
{
    info.Capacity.clear();
    info.ICapacity.clear();
    const QList<QStringList> rows = m_capacities->rows();
    for (const QStringList &row : rows) {
        if (const auto stored = storedCapacity({row[0], row[1]})) {
            info.Capacity << stored->capacity;
            info.ICapacity << stored->current;
        }
    }
}
