#pragma once

#include <QString>
#include <QStringList>

#include <span>
#include <unordered_map>
#include <vector>

/// Which rows concern which others: those of one parameter number, those whose conditions are about it, and those of
/// one help ID. A row is known by a handle, a number from 0 that it keeps wherever it moves.
class RowGroups
{
public:
    /// What others take from a row.
    struct Facts
    {
        QString numberKey; ///< empty for none
        QString helpId; ///< likewise
        QStringList subjects; ///< of its conditions: keys of numbers
        std::size_t ranges; ///< a hash
        std::size_t name; ///< likewise
    };

    void enter(int handle, const Facts &facts);
    /// Only for a row that has been entered.
    void leave(int handle);
    /// Brings the groups up to date that rows have entered or left. positions: of the rows by handle, negative for one
    /// that is gone. Appends to concerned the rows that see others now.
    void settle(std::span<const int> positions, std::vector<int> &concerned);

    /// The handle of the first row; -1 without one.
    int firstOfNumber(const QString &key) const { return firstOf(m_numbers, key); }
    int firstOfHelp(const QString &helpId) const { return firstOf(m_helpIds, helpId); }

private:
    struct Member
    {
        int handle;
        quint32 entry; ///< the row has left if its own is another by now
    };
    struct Group
    {
        const QString *key = nullptr;
        std::vector<Member> members;
        std::vector<Member> dependents; ///< of a number: rows with a condition on it
        std::size_t firstContent = 0; ///< what others take from the first row
        int first = -1; ///< its handle
        bool isTouched = false;
    };
    using Groups = std::unordered_map<QString, Group>;
    struct Links
    {
        Group *number = nullptr;
        Group *help = nullptr;
        std::vector<Group *> subjects;
        std::size_t ranges = 0;
        std::size_t name = 0;
        quint32 entry = 0;
    };

    static int firstOf(const Groups &groups, const QString &key);
    static Group *groupOf(Groups &groups, const QString &key);
    static void touch(Group *group, std::vector<Group *> &touched);
    void compact(std::vector<Member> &members) const;
    /// Whether another row is the first now, or says something else.
    bool findFirst(Group &group, std::size_t Links::*content, std::span<const int> positions) const;
    void settleNumber(Group &group, std::span<const int> positions, std::vector<int> &concerned) const;
    void settleHelp(Group &group, std::span<const int> positions, std::vector<int> &concerned) const;

    std::vector<Links> m_links; ///< by handle
    Groups m_numbers;
    Groups m_helpIds;
    std::vector<Group *> m_touchedNumbers;
    std::vector<Group *> m_touchedHelpIds;
};
