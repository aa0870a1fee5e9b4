#pragma once

#include "check/ContentCheck.h"
#include "check/FirstRows.h"
#include "check/OtherRows.h"
#include "document/PlainRow.h"

#include <span>
#include <vector>

class AnsiCodePage;

/// The rows of a file, which are decoded only where they have to be: those that are not plain, and those whose content
/// is such that something may be wrong with it. Of the others, which are nearly all, it keeps what tells that.
class FileRows : private OtherRows
{
public:
    explicit FileRows(const ContentBasis &basis);

    /// A row that is not plain.
    struct Decoded
    {
        int row; ///< from 0
        QByteArrayView bytes;
        PrRecord record;
    };

    /// Takes up all rows of a file, whose bytes must outlive this object; false if one of them cannot be read.
    bool read(QByteArrayView rows);
    int rowCount() const { return int(m_rows.size()); }
    /// The rows that a save may write otherwise.
    const std::vector<Decoded> &decoded() const { return m_decoded; }

    /// What checkContent() finds in the rows that were read.
    Findings checkContent();

private:
    struct Row
    {
        QByteArrayView bytes;
        QByteArrayView name; ///< of a plain row; else null
        int number; ///< -1: no small number
        int helpId; ///< likewise, or the row is not plain; 0 for none
        std::size_t intervalsEnd; ///< in m_intervals, where the next row's begin
        int decoded; ///< in m_decoded; -1: the row is plain
        bool isOdd; ///< only checkContent() can tell whether something is wrong
    };
    /// A condition on a parameter's number.
    struct Condition
    {
        int row;
        int subject;
        SettingInterval named;
        bool hasRange;
    };

    int rowOf(const QString &number) const override;
    int rowOfHelp(const QString &helpId) const override { return m_helpIds.rowOf(helpId); }
    QString number(int row) const override;
    QString name(int row) const override;
    QList<SettingInterval> intervals(int row) const override;

    void add(const PlainRow &row);
    void add(const Decoded &row);
    bool addIntervals(const PlainRow &row);
    bool addConditions(const PlainRow &row);
    bool addCondition(const PlainRow::Condition &condition);
    bool isOddSetting(const PlainRow &row, std::span<const SettingInterval> permitted) const;
    bool isOddCode(const PlainRow &row) const;
    bool isOddAmongOthers(int row) const;
    bool sharesHelp(const Row &row) const;
    bool isOdd(const Condition &condition) const;
    std::span<const SettingInterval> intervalsOf(int row) const;
    PrRecord recordOf(int row) const;

    ContentBasis m_basis;
    const AnsiCodePage &m_page;
    quint16 m_knownBits; ///< of function codes
    std::vector<Row> m_rows;
    std::vector<Decoded> m_decoded; ///< by row
    std::vector<SettingInterval> m_intervals; ///< of all rows; those of one are ascending
    std::vector<Condition> m_conditions;
    FirstRows m_numbers; ///< by numberKey()
    FirstRows m_helpIds;
};
