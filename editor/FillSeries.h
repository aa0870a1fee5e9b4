#pragma once

#include "grid/cells/CellType.h"

#include <QString>

#include <optional>
#include <vector>

/// How the texts of a column are continued.
enum class SeriesRule {
    Counts, ///< a single number, or text that ends in one, counts by 1
    RepeatsOne, ///< a single one is repeated; only several continue by counting
    Hexadecimal, ///< codes of four digits; a single one counts by 1
};

/// The texts that continue given ones. Numbers, and texts that differ only in the number at their end, continue by
/// their difference: 10, 20 by 30; "No. 08", "No. 09" by "No. 10". Everything else is repeated in its order, and so are
/// the texts of cells with a fixed choice.
class FillSeries
{
public:
    /// The series ends where a code would need more than four digits, or a number after a text would be negative.
    FillSeries(const std::vector<QString> &given, const CellType &type, SeriesRule rule);

    /// Whether it continues by counting.
    bool counts() const { return m_counts; }
    /// The text at index, from 0, after the given ones; std::nullopt past the end of the series.
    std::optional<QString> at(int index) const;

private:
    /// A number, perhaps at the end of a text.
    struct Number
    {
        QString before; ///< the text before it
        qint64 value = 0; ///< without its decimal point
        int decimals = 0;
        int digits = 0; ///< before the decimal point if there are leading zeros; else 0
        bool isCode = false;
    };

    static std::optional<Number> codeOf(const QString &text);
    static std::optional<Number> numberOf(const QString &text, bool decimalsAfterText);
    bool findStep(std::vector<Number> numbers);
    QString textOf(qint64 value) const;

    std::vector<QString> m_given;
    bool m_counts = false;
    bool m_dropsZeros = false; ///< the numbers that were given have different counts of decimals
    Number m_last;
    qint64 m_step = 1;
};

/// How many of a column's texts a series continues: those above the first one that is empty or, except for the topmost,
/// still as in an added row; two if there is no such text; 0 if there is nothing to continue.
int givenTexts(const std::vector<QString> &texts, QStringView added);
