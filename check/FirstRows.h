#pragma once

#include <QHash>
#include <QString>

#include <vector>

/// The first row, from 0, of each of many texts. Nearly all texts are small numbers
/// (smallNumber()), which need no hash.
class FirstRows
{
public:
    /// Enters a row; one that is there for the same text stays. Rows come in ascending order.
    void enter(const QString &text, int row);
    /// The same for the text of a small number.
    void enter(int number, int row);

    /// -1 without one.
    int rowOf(const QString &text) const;
    int rowOf(int number) const { return std::size_t(number) < m_small.size() ? m_small[std::size_t(number)] : -1; }

private:
    std::vector<int> m_small; ///< by number; -1 for none
    QHash<QString, int> m_others;
};
