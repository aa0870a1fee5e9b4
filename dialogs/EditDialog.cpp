#include "dialogs/EditDialog.h"

#include "app/Common.h"
#include "app/Language.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

QString elementName(const QString &array, int index)
{
    return u"%1(%2)"_s.arg(array).arg(index);
}

EditDialog::EditDialog(QWidget *parent, int helpContext) : QDialog(parent), m_helpContext(helpContext)
{
}

QHBoxLayout *EditDialog::createButtonRow()
{
    auto *row = new QHBoxLayout;
    row->addStretch();
    QPushButton *ok = addButton(*row, u"cmdOK"_s, 1);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &EditDialog::accept);
    connect(addButton(*row, u"cmdCancel"_s, 2), &QPushButton::clicked, this, &EditDialog::reject);
    if (m_helpContext != 0) {
        addHelp(*row);
    }
    return row;
}

QPushButton *EditDialog::addButton(QHBoxLayout &row, const QString &name, qint16 captionText)
{
    auto *button = new QPushButton(this);
    button->setObjectName(name);
    row.addWidget(button);
    m_buttons << Button{button, captionText};
    return button;
}

void EditDialog::addHelp(QHBoxLayout &row)
{
    connect(addButton(row, u"cmdHelp"_s, 45), &QPushButton::clicked, this, &EditDialog::showHelp);
    auto *key = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(key, &QShortcut::activated, this, &EditDialog::showHelp);
}

void EditDialog::showHelp()
{
    ShowHelp(this, m_helpContext);
}

void EditDialog::prepare(qint16 captionText)
{
    setObjectName(QString::fromLatin1(metaObject()->className()));
    setWindowTitle(ResString(captionText));
    for (const Button &button : std::as_const(m_buttons)) {
        button.widget->setText(ResString(button.captionText));
    }
    ApplyUserFont(*this);
    setEqualButtonWidths();
    fitSize();
    PrepareDialog(*this);
}

// An earlier opening may have left another size, and what frames need reaches a hidden window's layout only when told.
void EditDialog::fitSize()
{
    const auto frames = findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (QWidget *frame : frames) {
        frame->updateGeometry();
    }
    layout()->activate();
    adjustSize();
}

void EditDialog::setEqualButtonWidths()
{
    int width = 0;
    for (const Button &button : std::as_const(m_buttons)) {
        width = qMax(width, button.widget->sizeHint().width());
    }
    for (const Button &button : std::as_const(m_buttons)) {
        button.widget->setMinimumWidth(width + fontMetrics().averageCharWidth());
    }
}
