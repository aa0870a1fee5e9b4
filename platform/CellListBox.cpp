#include "platform/CellListBox.h"

#include "platform/CellType.h"

#include <QAbstractItemView>

using namespace Qt::StringLiterals;

CellListBox::CellListBox(const CellType &type, const QString &text, QWidget *parent)
    : QComboBox(parent), m_original(text)
{
    setObjectName(u"cellEditor"_s);
    setFrame(false);
    if (!type.items.contains(text)) {
        addItem(text);
    }
    addItems(type.items);
    setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

bool CellListBox::needsKey(int key) const
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

void CellListBox::hidePopup()
{
    const bool wasShown = view()->isVisible();
    QComboBox::hidePopup();
    if (wasShown) {
        // The chosen item becomes the current one only after the list has gone.
        QMetaObject::invokeMethod(this, &CellListBox::closed, Qt::QueuedConnection);
    }
}
