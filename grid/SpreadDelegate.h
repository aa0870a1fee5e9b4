#pragma once

#include "grid/CellSearch.h"
#include "grid/CheckBoxPictures.h"
#include "grid/cells/ShapedTexts.h"

#include <QPalette>
#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>
#include <utility>

class CellEditor;
class QFocusEvent;
class QTableView;
class SpreadModel;

/// Paints the cells of a spread grid and edits them in place. Check boxes and drop-down arrows are painted; the only
/// widget in the grid is the editor that is open.
class SpreadDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    SpreadDelegate(QTableView &view, const SpreadModel &model);

    /// Draws boxes, arrows and margins at that zoom (per cent). Texts are drawn in the painter's font.
    void setZoom(int percent) { m_zoom = percent; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
        const QModelIndex &index) override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// The open editor; nullptr if there is none.
    CellEditor *editor() const;
    /// Ends the edit and takes what was typed, if the cell takes it.
    void finishEdit();
    /// Ends the edit without taking what was typed.
    void dropEdit();
    /// Sets what Ctrl+Enter does in an editor, which stays open meanwhile. If run returns false the key ends the edit.
    void setFillKey(std::function<bool()> run) { m_runFillKey = std::move(run); }

    CellSearch &search() { return m_search; }
    /// Whether cells that hold the searched text are painted on a background of another colour.
    void setFoundMarked(bool marked) { m_foundMarked = marked; }

    /// Where a cell's check box is, with its caption; empty for other cells.
    QRect checkBoxRect(const QModelIndex &index, const QRect &cell) const;
    /// Where a cell's drop-down arrow is while the cell is active; empty for other cells.
    QRect arrowRect(const QModelIndex &index, const QRect &cell) const;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(
        QWidget *editor, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;

signals:
    /// A key ended an edit; it is now to do what it does in the grid.
    void keyAfterEdit(int key, Qt::KeyboardModifiers modifiers);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool runFillKey();
    bool isPressOnView(const QFocusEvent &event) const;
    bool keyEndsEdit(CellEditor &editor, int key, Qt::KeyboardModifiers modifiers);

    QColor backgroundOf(const QPalette &palette, int column, int row, bool active, bool selected) const;
    QColor selectedBackground(const QPalette &palette) const;
    void paintText(
        QPainter *painter, const QStyleOptionViewItem &option, QStringView text, Qt::Alignment alignment) const;
    void paintCheckBox(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintArrow(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    bool isTextCut(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    int margin() const;

    QTableView &m_view;
    const SpreadModel &m_model;
    CellSearch m_search;
    mutable CheckBoxPictures m_boxes;
    mutable ShapedTexts m_texts;
    bool m_foundMarked = false;
    std::function<bool()> m_runFillKey;
    bool m_keepsOpen = false; ///< the editor stays open even if it loses the focus
    mutable QPointer<QWidget> m_editor;
    int m_zoom = 100; ///< per cent
    mutable QColor m_selectedBackground;
    mutable std::pair<qint64, QPalette::ColorGroup>
        m_selectedPalette; ///< the palette that m_selectedBackground is from
};
