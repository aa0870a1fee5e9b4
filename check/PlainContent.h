#pragma once

#include "check/ContentCheck.h"
#include "check/FirstRows.h"
#include "check/OtherRows.h"
#include "document/PlainRow.h"

#include <span>
#include <vector>

class AnsiCodePage;

/// Checks the content of a file's rows without decoding them, where all are plain. What it keeps of a row suffices to
/// tell that nothing is wrong with it, as with nearly all; only the others are decoded and given to checkContent().
class PlainContent : private OtherRows
{
public:
    explicit PlainContent(const ContentBasis &basis);

    /// Takes up all rows of a file, whose bytes must outlive this object; false if one of them is not plain.
    bool read(QByteArrayView rows);
    int rowCount() const { return int(m_rows.size()); }

    /// What checkContent() finds in the rows that were read.
    Findings check();

private:
    struct Row
    {
        QByteArrayView bytes;
        QByteArrayView name;
        int number; ///< -1: no small number
        int helpId; ///< likewise; 0 for none
        std::size_t intervalsEnd; ///< in m_intervals, where the next row's begin
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
    bool addIntervals(const PlainRow &row);
    bool addConditions(const PlainRow &row);
    bool addCondition(const PlainRow::Condition &condition);
    bool isOddSetting(const PlainRow &row, std::span<const SettingInterval> permitted) const;
    bool isOddCode(const PlainRow &row) const;
    bool isOddAmongOthers(int row) const;
    bool isOdd(const Condition &condition) const;
    std::span<const SettingInterval> intervalsOf(int row) const;
    PrRecord recordOf(int row) const;

    ContentBasis m_basis;
    const AnsiCodePage &m_page;
    quint16 m_knownBits; ///< of function codes
    std::vector<Row> m_rows;
    std::vector<SettingInterval> m_intervals; ///< of all rows; those of one are ascending
    std::vector<Condition> m_conditions;
    FirstRows m_numbers; ///< by numberKey()
    FirstRows m_helpIds;
};
