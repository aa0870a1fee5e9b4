#include "grid/SpreadDelegate.h"

#include "desktop/Contrast.h"
#include "grid/MarkCorner.h"
#include "grid/cells/CellInput.h"
#include "grid/cells/CellMetrics.h"
#include "grid/cells/CellText.h"
#include "grid/cells/LineEnds.h"
#include "grid/cells/SpreadModel.h"
#include "grid/cells/TextMeter.h"
#include "grid/cells/VisibleText.h"
#include "grid/editors/CellLineEdit.h"
#include "grid/editors/CellListBox.h"
#include "grid/editors/CellTextBox.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTableView>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr QRgb activeMatchTint = 0xffff8000;

const CellType &typeOf(const SpreadModel &model, const QModelIndex &index)
{
    return model.cellType(index.column() + 1, index.row() + 1);
}

QColor textColour(const QPalette &palette, const QColor &own, const QColor &background, bool selected)
{
    if (selected) {
        return palette.color(QPalette::HighlightedText);
    }
    const bool plain = !own.isValid() && background == palette.color(QPalette::Base);
    return plain ? palette.color(QPalette::Text)
                 : readableOn(background, own.isValid() ? own : palette.color(QPalette::Text));
}

/// The part of the view that the user can see.
QRect windowOf(const QStyleOptionViewItem &option)
{
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    return view ? view->viewport()->rect() : option.rect;
}

/// How many pixels of the rectangle are in the window, counted from its left edge.
int visibleWidth(const QRect &rect, const QRect &window)
{
    return std::min(rect.width(), window.right() - rect.left() + 1);
}

// Each desktop has only one of the two; without this the other would go to the grid.
bool isRedoKey(const QKeyEvent &event)
{
    const QKeyCombination key = event.keyCombination();
    return key == (Qt::CTRL | Qt::Key_Y) || key == (Qt::CTRL | Qt::SHIFT | Qt::Key_Z);
}

bool isFillKey(int key, Qt::KeyboardModifiers modifiers)
{
    return (key == Qt::Key_Return || key == Qt::Key_Enter) && (modifiers & ~Qt::KeypadModifier) == Qt::ControlModifier;
}

/// The editor that fits the cell type and the cell's text; it shows that text already.
CellEditor *newEditor(const CellType &type, const QString &text, QWidget *parent)
{
    if (type.kind == CellType::Kind::ComboBox) {
        return new CellListBox(type, text, parent);
    }
    if (LineEnds::areIn(text)) {
        return new CellTextBox(type, text, parent);
    }
    return new CellLineEdit(type, text, parent);
}

/// The editor that this widget is; nullptr for other widgets.
CellEditor *editorOf(QWidget *widget)
{
    return dynamic_cast<CellEditor *>(widget);
}

} // namespace

SpreadDelegate::SpreadDelegate(QTableView &view, const SpreadModel &model)
    : QStyledItemDelegate(&view), m_view(view), m_model(model), m_search(view, model), m_boxes(view)
{
}

int SpreadDelegate::margin() const
{
    return CellMetrics::zoomed(CellMetrics::margin, m_zoom);
}

// Painting

// The active cell keeps its own background in a selected block.
void SpreadDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const int column = index.column() + 1;
    const int row = index.row() + 1;
    const bool active = index == m_view.currentIndex();
    const bool selected = !active && option.state & QStyle::State_Selected;
    const QColor background = backgroundOf(option.palette, column, row, active, selected);
    painter->fillRect(option.rect, background);
    painter->setPen(textColour(option.palette, m_model.textColour(column, row), background, selected));
    const CellType::Kind kind = m_model.cellType(column, row).kind;
    if (kind == CellType::Kind::CheckBox) {
        paintCheckBox(painter, option, index);
    } else {
        paintText(painter, option, m_model.text(column, row), m_model.alignment(column));
    }
    if (active && kind == CellType::Kind::ComboBox) {
        paintArrow(painter, option, index);
    }
    if (const CellMark mark = m_model.mark(column, row); mark != CellMark::None) {
        paintMarkCorner(*painter, option.rect, mark, background);
    }
}

// The match at the active cell has a stronger colour than the others.
QColor SpreadDelegate::backgroundOf(const QPalette &palette, int column, int row, bool active, bool selected) const
{
    if (selected) {
        return selectedBackground(palette);
    }
    const QColor base = palette.color(QPalette::Base);
    const bool marked = m_foundMarked && m_search.isFound(column, row);
    return !marked ? base : tinted(base, active ? QColor(activeMatchTint) : QColor(Qt::yellow));
}

// Many desktops choose their highlight colour for its looks: this is a shade of it on which texts can be read.
QColor SpreadDelegate::selectedBackground(const QPalette &palette) const
{
    const std::pair looked{palette.cacheKey(), palette.currentColorGroup()};
    if (looked != m_selectedPalette) {
        m_selectedPalette = looked;
        m_selectedBackground = readableOn(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight));
    }
    return m_selectedBackground;
}

void SpreadDelegate::paintText(
    QPainter *painter, const QStyleOptionViewItem &option, QStringView text, Qt::Alignment alignment) const
{
    if (text.isEmpty()) {
        return;
    }
    const QRect rect = option.rect.adjusted(margin(), 0, -margin(), 0);
    if (m_texts.draw(*painter, rect, alignment, text)) {
        return;
    }
    const QRect window = windowOf(option);
    const QFontMetrics metrics = painter->fontMetrics();
    if (rect.height() > window.height() && VisibleText::isManyLines(text) && LineEnds::areIn(text)) {
        const auto lines = VisibleText::ofLines(text, rect, window, metrics.lineSpacing(), alignment);
        painter->drawText(QRect(rect.left(), lines.top, rect.width(), rect.bottom() - lines.top + 1),
            int(alignment | Qt::AlignTop) | Qt::TextExpandTabs, lines.text);
        return;
    }
    const QStringView seen = VisibleText::ofLine(text, visibleWidth(rect, window), Qt::AlignLeft);
    const bool leavesWindow = seen.size() < text.size() && rect.right() > window.right() && !LineEnds::areIn(text);
    const QString shown = leavesWindow ? seen.toString() : shownCellText(text, metrics, rect.size());
    const Qt::Alignment side = leavesWindow ? Qt::AlignLeft : alignment;
    const int flags = LineEnds::areIn(shown) ? Qt::TextExpandTabs : Qt::TextSingleLine;
    painter->drawText(rect, int(side | Qt::AlignVCenter) | flags, shown);
}

void SpreadDelegate::paintCheckBox(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QRect rect = checkBoxRect(index, option.rect);
    const bool ticked = CellInput::isTicked(m_model.text(index.column() + 1, index.row() + 1));
    const QPixmap &box = m_boxes.picture(ticked, m_model.textColour(index.column() + 1, index.row() + 1), m_zoom);
    painter->drawPixmap(rect.x(), rect.y() + (rect.height() - m_boxes.size(m_zoom).height()) / 2, box);
    QRect beside = rect.adjusted(m_boxes.size(m_zoom).width() + margin(), 0, 0, 0);
    beside.setRight(std::min(beside.right(), option.rect.right() - margin()));
    const QString &caption = typeOf(m_model, index).caption;
    if (!caption.isEmpty()) {
        painter->drawText(beside, Qt::AlignVCenter | Qt::TextSingleLine,
            shownCellText(caption, painter->fontMetrics(), beside.size()));
    }
}

void SpreadDelegate::paintArrow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QStyleOption arrow;
    arrow.initFrom(&m_view);
    arrow.rect = arrowRect(index, option.rect);
    painter->fillRect(arrow.rect, option.palette.brush(QPalette::Button));
    m_view.style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter, &m_view);
}

QRect SpreadDelegate::checkBoxRect(const QModelIndex &index, const QRect &cell) const
{
    const CellType &type = typeOf(m_model, index);
    if (type.kind != CellType::Kind::CheckBox) {
        return {};
    }
    QSize size = m_boxes.size(m_zoom);
    Qt::Alignment alignment = Qt::AlignCenter;
    if (!type.caption.isEmpty()) {
        size.rwidth() += margin() + m_view.fontMetrics().horizontalAdvance(type.caption);
        size.setHeight(std::max(size.height(), m_view.fontMetrics().height())); // letters are taller than a box
        alignment = m_model.alignment(index.column() + 1) | Qt::AlignVCenter;
    }
    return QStyle::alignedRect(m_view.layoutDirection(), alignment, size, cell.adjusted(margin(), 0, -margin(), 0));
}

QRect SpreadDelegate::arrowRect(const QModelIndex &index, const QRect &cell) const
{
    if (typeOf(m_model, index).kind != CellType::Kind::ComboBox) {
        return {};
    }
    const int width = std::min(cell.width() / 2, CellMetrics::zoomed(CellMetrics::arrowWidth, m_zoom));
    return cell.adjusted(cell.width() - width, 2, -2, -2);
}

QSize SpreadDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QStringView text = m_model.text(index.column() + 1, index.row() + 1);
    TextMeter meter(option.font);
    meter.add(text);
    const int extraHeight = m_zoom == 100 ? CellMetrics::extraHeight : 0; // rounding uses it up
    return {meter.widest() + 2 * margin() + CellMetrics::gridLine,
        CellMetrics::rowHeight(option.fontMetrics, text) - CellMetrics::extraHeight + extraHeight};
}

// A tip shows a text that its cell cuts off: all of it, unless it is too long to be read. What the cell's mark says
// follows, in lines that wrap.
bool SpreadDelegate::helpEvent(
    QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const int column = index.column() + 1;
    const int row = index.row() + 1;
    QString tip;
    if (isTextCut(option, index)) {
        tip = Qt::convertFromPlainText(VisibleText::beginning(m_model.text(column, row)));
    }
    if (const QString said = m_model.markText(column, row); !said.isEmpty()) {
        tip += Qt::convertFromPlainText(said, Qt::WhiteSpaceNormal);
    }
    QToolTip::showText(event->globalPos(), tip, view, option.rect);
    return true;
}

bool SpreadDelegate::isTextCut(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QSize available = option.rect.size() + QSize(CellMetrics::gridLine, CellMetrics::gridLine);
    const QSize needed = sizeHint(option, index);
    const bool isText = typeOf(m_model, index).kind != CellType::Kind::CheckBox;
    return isText && needed.boundedTo(available) != needed;
}

// Editing

CellEditor *SpreadDelegate::editor() const
{
    return editorOf(m_editor);
}

QWidget *SpreadDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem & /*option*/, const QModelIndex &index) const
{
    const CellType &type = typeOf(m_model, index);
    if (type.kind == CellType::Kind::CheckBox) {
        return nullptr;
    }
    CellEditor *created = newEditor(type, m_model.text(index.column() + 1, index.row() + 1).toString(), parent);
    created->alignText(m_model.alignment(index.column() + 1));
    m_editor = created->widget();
    m_editor->setAutoFillBackground(true);
    m_editor->setAccessibleName(m_model.headerText(index.column() + 1));
    if (auto *list = qobject_cast<CellListBox *>(m_editor)) {
        auto *self = const_cast<SpreadDelegate *>(this);
        list->view()->setAccessibleName(list->accessibleName());
        connect(list, &CellListBox::closed, self, &SpreadDelegate::finishEdit);
    }
    return m_editor;
}

// The editor got its text when it was created; what the program writes or colours meanwhile must not undo the typing.
void SpreadDelegate::setEditorData(QWidget * /*editor*/, const QModelIndex & /*index*/) const
{
}

void SpreadDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const CellEditor *cell = editorOf(editor);
    if (cell->isModified() && cell->isAcceptable()) {
        model->setData(index, cell->text(), Qt::EditRole);
    }
}

void SpreadDelegate::updateEditorGeometry(
    QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex & /*index*/) const
{
    // A row may be lower than its font; what is being typed is shown in full height.
    QRect rect = option.rect;
    rect.setHeight(std::max(rect.height(), editorOf(editor)->neededHeight()));
    editor->setGeometry(rect);
}

// The widget itself is deleted after the event that closed it.
void SpreadDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    m_editor = nullptr;
    QStyledItemDelegate::destroyEditor(editor, index);
}

// Closing an editor delivers its posted events, which may end the edit again.
void SpreadDelegate::finishEdit()
{
    if (QWidget *open = std::exchange(m_editor, nullptr)) {
        emit commitData(open);
        emit closeEditor(open, NoHint);
    }
}

void SpreadDelegate::dropEdit()
{
    if (QWidget *open = std::exchange(m_editor, nullptr)) {
        emit closeEditor(open, NoHint);
    }
}

bool SpreadDelegate::eventFilter(QObject *watched, QEvent *event)
{
    CellEditor *open = editor();
    if (open && watched == m_editor && event->type() == QEvent::FocusOut
        && (m_keepsOpen || isPressOnView(*static_cast<QFocusEvent *>(event)))) {
        return false;
    }
    if (open && watched == m_editor && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (isRedoKey(*key)) {
            open->redoTyping();
            return true;
        }
        if (isFillKey(key->key(), key->modifiers()) && runFillKey()) {
            return true;
        }
        if (key->key() != Qt::Key_Escape) {
            return keyEndsEdit(*open, key->key(), key->modifiers());
        }
    }
    return QStyledItemDelegate::eventFilter(watched, event);
}

// The focus moves before the press that moves it is delivered. The press ends the edit itself, after it has found out
// which cell it means: ending an edit may sort the rows.
bool SpreadDelegate::isPressOnView(const QFocusEvent &event) const
{
    return event.reason() == Qt::MouseFocusReason && QApplication::focusWidget() == &m_view;
}

bool SpreadDelegate::keyEndsEdit(CellEditor &editor, int key, Qt::KeyboardModifiers modifiers)
{
    static constexpr std::array endingKeys = {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Up,
        Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
    if (std::ranges::find(endingKeys, key) == endingKeys.end() || editor.needsKey(key)) {
        return false;
    }
    if (editor.isAcceptable() || !editor.isModified()) {
        finishEdit();
        if (!isFillKey(key, modifiers)) { // a fill would replace what was just typed
            emit keyAfterEdit(key, modifiers);
        }
    }
    return true;
}

// While a message says why the cells do not take the text, the editor must not lose it to one of them.
bool SpreadDelegate::runFillKey()
{
    const QScopedValueRollback kept(m_keepsOpen, true);
    return m_runFillKey && m_runFillKey();
}
