#include "dialogs/frmFunc.h"

#include "app/services/Common.h"
#include "app/services/Language.h"
#include "dialogs/ParameterHeading.h"
#include "dialogs/PromptButton.h"
#include "document/FieldText.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int helpContext = 50;
constexpr int boxesPerRow = 3;
constexpr int columnSpacing = 20;
constexpr int firstExtraGroup = 12; // from this one on, groups without a label are hidden

} // namespace

frmFunc::frmFunc(QWidget *parent)
    : EditDialog(parent, helpContext), m_heading(new ParameterHeading(this, u"lblFuncCode"_s))
{
    m_heading->value().setAlignment(Qt::AlignCenter);
    auto *all = new QVBoxLayout;
    all->addLayout(m_heading);
    all->addWidget(createBoxes());
    layOut(all, Resizing::Fixed);
}

QWidget *frmFunc::createBoxes()
{
    m_frame = new QGroupBox(this);
    m_frame->setObjectName(u"Frame1"_s);
    auto *grid = new QGridLayout(m_frame);
    grid->setHorizontalSpacing(columnSpacing);
    for (int group = 0; group < FunctionGroupCount; ++group) {
        auto *box = new PromptCheckBox(m_frame);
        box->setObjectName(elementName(u"chkFunc"_s, group));
        connect(box, &QCheckBox::toggled, this, [this] { showCode(codeFromBoxes()); });
        grid->addWidget(box, group / boxesPerRow, group % boxesPerRow);
        m_boxes[group] = box;
    }
    return m_frame;
}

bool frmFunc::ShowFuncCode(const QString &pr, qint16 &code, const QString &filePath)
{
    m_labels = functionLabels(filePath);
    load(pr, code);
    if (exec() != Accepted) {
        return false;
    }
    const qint16 chosen = codeFromBoxes();
    if (chosen == code) {
        return false;
    }
    code = chosen;
    return true;
}

void frmFunc::load(const QString &pr, qint16 code)
{
    m_heading->setTexts(pr, ResString(Text::FuncCode));
    m_frame->setTitle(ResString(Text::FuncGroups));
    const FunctionGroups groups = groupsOfCode(code, m_labels);
    for (int group = 0; group < FunctionGroupCount; ++group) {
        loadBox(group, groups[group]);
    }
    // The incoming code stays in view, with the bits that have no box, until the user touches a box.
    showCode(code);
    m_boxes[0]->setFocus();
    setCodeWidth();
    prepare(Text::FuncTitle);
}

// The same for every code, so that nothing moves when a box is ticked.
void frmFunc::setCodeWidth()
{
    QLabel &code = m_heading->value();
    const int margins = 2 * (code.margin() + code.frameWidth());
    code.setMinimumWidth(QFontMetrics(userFont()).horizontalAdvance(u"DDDD"_s) + margins);
}

void frmFunc::loadBox(int group, bool ticked)
{
    QCheckBox *box = m_boxes[group];
    const QSignalBlocker quiet(box);
    const bool enabled = hasFunctionGroup(m_labels, group);
    box->setEnabled(enabled);
    box->setVisible(enabled || group < firstExtraGroup);
    box->setText(enabled ? ResString(functionGroupText(m_labels, group)) : QString());
    box->setChecked(ticked);
}

void frmFunc::showCode(qint16 code)
{
    m_heading->value().setText(functionCodeText(code));
}

qint16 frmFunc::codeFromBoxes() const
{
    FunctionGroups groups{};
    for (int group = 0; group < FunctionGroupCount; ++group) {
        groups[group] = m_boxes[group]->isChecked();
    }
    return codeOfGroups(groups, m_labels);
}
