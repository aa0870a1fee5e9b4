#include "dialogs/frmCap.h"

#include "app/services/Language.h"
#include "dialogs/SelectAllBox.h"
#include "runtime/NumberText.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

// By index of the boxes: capacity, rated current.
constexpr Text labelTexts[] = {Text::CapCapacity, Text::CapCurrent};

} // namespace

frmCap::frmCap(QWidget *parent) : EditDialog(parent)
{
    auto *grid = new QGridLayout;
    for (int i = 0; i < boxCount; ++i) {
        m_labels[i] = new QLabel(this);
        m_labels[i]->setObjectName(elementName(u"Label1"_s, i));
        m_boxes[i] = new SelectAllBox(this);
        m_boxes[i]->setObjectName(elementName(u"Text1"_s, i));
        m_labels[i]->setBuddy(m_boxes[i]);
        grid->addWidget(m_labels[i], i, 0);
        grid->addWidget(m_boxes[i], i, 1);
    }
    layOut(grid, Resizing::Fixed);
}

bool frmCap::ShowCapForm(QStringList &values)
{
    load();
    if (exec() != Accepted) {
        return false;
    }
    for (int i = 0; i < qMin<qsizetype>(boxCount, values.size()); ++i) {
        values[i] = m_boxes[i]->text();
    }
    return true;
}

void frmCap::load()
{
    for (int i = 0; i < boxCount; ++i) {
        m_labels[i]->setText(ResString(labelTexts[i]));
        m_boxes[i]->clear();
    }
    m_boxes[0]->setFocus();
    prepare(Text::CapTitle);
}

void frmCap::accept()
{
    for (QLineEdit *box : m_boxes) {
        if (!isNumeric(box->text())) {
            box->setFocus();
            return;
        }
    }
    EditDialog::accept();
}
