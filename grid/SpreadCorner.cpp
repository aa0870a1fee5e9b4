#include "grid/SpreadCorner.h"

#include "grid/HeaderSection.h"
#include "grid/cells/SpreadModel.h"

#include <QAbstractButton>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QTableView>

using namespace Qt::StringLiterals;

SpreadCorner::SpreadCorner(QTableView &view, const SpreadModel &model)
    : QObject(&view), m_button(view.findChild<QAbstractButton *>(QString(), Qt::FindDirectChildrenOnly)), m_model(model)
{
    m_button->setObjectName(u"corner"_s);
    m_button->installEventFilter(this);
    disconnect(m_button, nullptr, &view, nullptr); // or it would select all
    connect(&model, &QAbstractItemModel::headerDataChanged, this, &SpreadCorner::showText);
}

void SpreadCorner::showText()
{
    nameButton();
    m_button->update();
}

// Without a text it has the accessible name of the grid.
void SpreadCorner::nameButton()
{
    const QString text = m_model.headerText(0);
    m_button->setAccessibleName(text.isEmpty() ? m_button->parentWidget()->accessibleName() : text);
}

bool SpreadCorner::eventFilter(QObject *watched, QEvent *event)
{
    const auto *mouse = dynamic_cast<QMouseEvent *>(event);
    if (event->type() == QEvent::Show) {
        nameButton(); // the view may have been named by now
    }
    if (event->type() == QEvent::Paint) {
        paint();
        return true;
    }
    if (mouse && event->type() == QEvent::MouseButtonDblClick) {
        emit doubleClicked();
        return true;
    }
    if (mouse && event->type() == QEvent::MouseButtonRelease && mouse->button() == Qt::RightButton) {
        emit rightClicked(mouse->globalPosition().toPoint());
    }
    return QObject::eventFilter(watched, event);
}

void SpreadCorner::paint() const
{
    QPainter painter(m_button);
    QStyleOptionHeaderV2 option;
    option.initFrom(m_button);
    option.position = QStyleOptionHeader::OnlyOneSection;
    option.text = m_model.headerText(0);
    option.textAlignment = Qt::AlignCenter;
    drawHeaderSection(option, painter, *m_button);
}
