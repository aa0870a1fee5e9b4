#include "grid/editors/CellListBox.h"

#include "grid/cells/CellType.h"

#include <QAbstractItemView>
#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

CellListBox::CellListBox(const CellType &type, const QString &text, QWidget *parent)
    : QComboBox(parent), m_original(text), m_unlisted(type.unlisted)
{
    setObjectName(u"cellEditor"_s);
    setFrame(false);
    if (!type.items.contains(text)) {
        addItem(text);
    }
    addItems(type.items);
    setCurrentIndex(findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

// Texts that are not in the list are found by their first letter, too.
void CellListBox::keyPressEvent(QKeyEvent *event)
{
    const auto found = std::ranges::find_if(m_unlisted, [event](const QString &text) {
        return !event->text().isEmpty() && text.startsWith(event->text(), Qt::CaseInsensitive);
    });
    if (found == m_unlisted.cend()) {
        QComboBox::keyPressEvent(event);
        return;
    }
    if (findText(*found, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0) {
        insertItem(0, *found);
    }
    setCurrentText(*found);
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
        // The chosen item becomes the current one only after the list is hidden.
        QMetaObject::invokeMethod(this, &CellListBox::closed, Qt::QueuedConnection);
    }
}
