#include "dialogs/EditDialog.h"

#include "app/services/Common.h"
#include "app/services/Language.h"
#include "desktop/PlainCaption.h"
#include "desktop/ScreenFit.h"
#include "dialogs/ContentsArea.h"
#include "dialogs/DialogGrid.h"

#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

QString elementName(const QString &array, int index)
{
    return u"%1(%2)"_s.arg(array).arg(index);
}

EditDialog::EditDialog(QWidget *parent, int helpContext) : QDialog(parent), m_helpContext(helpContext)
{
}

void EditDialog::layOut(QLayout *contents, Resizing resizing, const QList<QPushButton *> &furtherButtons)
{
    m_contents = new ContentsArea(contents, this);
    m_buttonRow = new QHBoxLayout;
    for (QPushButton *button : furtherButtons) {
        m_buttonRow->addWidget(button);
    }
    m_buttonRow->addStretch();
    addCommonButtons();
    auto *all = new QVBoxLayout(this);
    all->addWidget(m_contents, 1);
    all->addLayout(m_buttonRow);
    if (resizing == Resizing::Fixed) {
        all->setSizeConstraint(QLayout::SetFixedSize);
    }
}

void EditDialog::addCommonButtons()
{
    QPushButton *ok = addButton(u"cmdOK"_s, Text::Ok);
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &EditDialog::accept);
    connect(addButton(u"cmdCancel"_s, Text::Cancel), &QPushButton::clicked, this, &EditDialog::reject);
    if (m_helpContext != 0) {
        addHelp();
    }
}

QPushButton *EditDialog::addButton(const QString &name, Text caption)
{
    auto *button = new QPushButton(this);
    button->setObjectName(name);
    m_buttonRow->addWidget(button);
    m_buttons << Button{button, caption};
    return button;
}

void EditDialog::addHelp()
{
    connect(addButton(u"cmdHelp"_s, Text::MenuHelp), &QPushButton::clicked, this, &EditDialog::showHelp);
    auto *key = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(key, &QShortcut::activated, this, &EditDialog::showHelp);
}

void EditDialog::showHelp()
{
    ShowHelp(this, m_helpContext);
}

void EditDialog::prepare(Text caption)
{
    prepare(ResString(caption));
}

void EditDialog::prepare(const QString &caption)
{
    setObjectName(QString::fromLatin1(metaObject()->className()));
    setWindowTitle(plainTitle(caption));
    for (const Button &button : std::as_const(m_buttons)) {
        button.widget->setText(ResString(button.caption));
    }
    ApplyUserFont(*this);
    setEqualButtonWidths();
    fitSize();
    PrepareDialog(*this);
}

void EditDialog::fitSize()
{
    const QSize maxSize = maxSizeOnScreen(*this);
    const QList<DialogGrid *> lists = m_contents->findChildren<DialogGrid *>();
    const auto shrinkLists = [&lists](bool shrunk) {
        for (DialogGrid *list : lists) {
            list->setShrinkable(shrunk);
        }
    };
    // An earlier opening may have left another size.
    m_contents->setMaxSize({QWIDGETSIZE_MAX, QWIDGETSIZE_MAX});
    shrinkLists(false);
    const QSize needed = neededSize();
    shrinkLists(needed.width() > maxSize.width() || needed.height() > maxSize.height());
    const QSize besideContents = needed - m_contents->sizeHint();
    m_contents->setMaxSize(maxSize - QSize(2 * layout()->contentsMargins().left(), besideContents.height()));
    resize(neededSize().boundedTo(maxSize));
}

// What the parts of frames need reaches a hidden window's layouts only when told.
QSize EditDialog::neededSize()
{
    const auto layouts = m_contents->widget()->findChildren<QLayout *>();
    for (QLayout *inner : layouts) {
        inner->invalidate();
    }
    const auto parts = m_contents->widget()->findChildren<QWidget *>(Qt::FindDirectChildrenOnly);
    for (QWidget *part : parts) {
        part->updateGeometry();
    }
    m_contents->widget()->layout()->activate();
    m_contents->updateGeometry();
    layout()->activate();
    return layout()->totalSizeHint();
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
