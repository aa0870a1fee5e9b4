#pragma once

#include <QPoint>
#include <QString>
#include <QStringMatcher>

#include <optional>

class QTableView;
class SpreadModel;

/// Where a grid's shown cells hold a text that is searched for, without regard to case. A check box shows no text.
/// Columns and rows count from 1.
class CellSearch
{
public:
    CellSearch(const QTableView &view, const SpreadModel &model) : m_view(view), m_model(model) { }

    /// An empty text is found nowhere.
    void setText(const QString &text);
    bool isFound(int column, int row) const;
    /// The next cell (column, row) that holds the text, in reading order (step 1) or against it (step -1), around the
    /// end of the grid; the cell from comes last. Nothing when no cell holds it.
    std::optional<QPoint> next(QPoint from, int step) const;

private:
    int columnInRow(int row, int column, int step) const;
    bool mayBeInRow(int row) const;

    const QTableView &m_view;
    const SpreadModel &m_model;
    QStringMatcher m_matcher;
};
