#pragma once

#include "bench/PlainPage.h"

#include <QAbstractTableModel>
#include <QTableView>

/// The texts of plain rows as any program's model has them.
class PlainModel : public QAbstractTableModel
{
public:
    explicit PlainModel(const PlainRows &rows) : m_rows(rows) { }

    int rowCount(const QModelIndex & /*parent*/ = {}) const override { return int(m_rows.size()); }
    int columnCount(const QModelIndex & /*parent*/ = {}) const override { return benchColumnCount; }
    Qt::ItemFlags flags(const QModelIndex &index) const override
    {
        return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
    }
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override
    {
        const bool isText = role == Qt::DisplayRole || role == Qt::EditRole;
        return isText ? m_rows[size_t(index.row())][size_t(index.column())] : QVariant();
    }
    bool setData(const QModelIndex &index, const QVariant &value, int /*role*/ = Qt::EditRole) override
    {
        m_rows[size_t(index.row())][size_t(index.column())] = value.toString();
        emit dataChanged(index, index);
        return true;
    }

private:
    PlainRows m_rows;
};

/// A plain table view with the same texts as a grid.
class PlainView : public QTableView
{
public:
    explicit PlainView(const PlainRows &rows) : m_model(rows) { setModel(&m_model); }

private:
    PlainModel m_model;
};
