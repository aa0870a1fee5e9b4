#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <span>
#include <vector>

/// Which rows concern which others: those of one parameter number, those whose conditions are about it, and those of
/// one help ID. A row is known by a handle, a number from 0 that it keeps wherever it moves. Twenty bytes a row: a
/// large table has as many numbers and help IDs as rows.
class RowGroups
{
public:
    /// What others take from a row.
    struct Facts
    {
        QString numberKey; ///< empty for none
        QString helpId; ///< likewise
        QStringList subjects; ///< of its conditions: keys of numbers
        std::size_t said; ///< a hash of its ranges and name
    };

    void enter(int handle, const Facts &facts);
    /// Only for a row that has been entered.
    void leave(int handle);
    /// Brings the groups up to date that rows have entered or left. positions: of the rows by handle, negative for one
    /// that is gone. Appends to concerned the rows that see others now.
    void settle(std::span<const int> positions, std::vector<int> &concerned);

    /// The handle of the first row; -1 without one. Only once all is settled.
    int firstOfNumber(const QString &key) const { return firstOf(&Row::number, keyOf(key)); }
    int firstOfHelp(const QString &helpId) const { return firstOf(&Row::help, keyOf(helpId)); }

private:
    static constexpr int noKey = -1;
    struct Row
    {
        int number = noKey;
        int help = noKey;
        quint32 said : 28 = 0;
        bool isFirstOfNumber : 1 = false;
        bool isFirstOfHelp : 1 = false;
        bool isListed : 1 = false; ///< in m_byNumber and m_byHelp
        bool isNew : 1 = false; ///< to be listed
    };
    struct Gone
    {
        int handle;
        Row row;
    };
    struct Dependent
    {
        int subject;
        int handle;
    };
    using Key = int Row::*;
    using Handles = std::vector<int>; ///< by the key of their rows; the first row of a group comes first in it
    /// What the first rows that have left said, by key.
    using Lost = QHash<int, quint32>;

    int keyOf(const QString &text) const;
    int madeKeyOf(const QString &text);
    int firstOf(Key key, int value) const;
    Handles &listOf(Key key) { return key == &Row::number ? m_byNumber : m_byHelp; }
    const Handles &listOf(Key key) const { return key == &Row::number ? m_byNumber : m_byHelp; }
    static bool isFirst(const Row &row, Key key);
    void setFirst(int handle, Key key, bool isFirst);
    std::vector<int> touched(Key key) const;
    Lost lost(Key key) const;
    void dropGone();
    void listNew(Key key);
    void listNewDependents();
    void settle(Key key, int value, const Lost &lost, std::span<const int> positions, std::vector<int> &concerned);
    void concernOthers(Key key, int value, std::span<const int> group, std::vector<int> &concerned) const;

    std::vector<Row> m_rows; ///< by handle
    Handles m_byNumber;
    Handles m_byHelp;
    std::vector<Dependent> m_dependents; ///< by subject
    QHash<QString, int> m_oddKeys; ///< of texts that are no small numbers; they stay
    std::vector<Gone> m_gone; ///< since the last settle(), as the following
    Handles m_new;
    std::vector<Dependent> m_newDependents;
};
