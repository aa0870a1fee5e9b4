#pragma once

#include "grid/cells/CellType.h"

#include <QString>

#include <optional>
#include <vector>

/// How the texts of a column go on.
enum class SeriesRule {
    Counts, ///< a single number, or text that ends in one, counts by 1
    RepeatsOne, ///< only several count on, a single one is repeated
    Hexadecimal, ///< codes of four digits; a single one counts by 1
};

/// The texts that follow given ones. Numbers, or texts that differ in the number at their end only, go on by what lies
/// between them: 10, 20 by 30; "No. 08", "No. 09" by "No. 10". Whatever else is given is repeated in its order, and so
/// is what a cell has a fixed choice for.
class FillSeries
{
public:
    /// The series ends where a code would leave four digits, or a number behind a text would be less than 0.
    FillSeries(const std::vector<QString> &given, const CellType &type, SeriesRule rule);

    /// Whether it goes on by a number.
    bool counts() const { return m_counts; }
    /// The text of a place behind those that were given, which counts from 0. Nothing behind the end of the series.
    std::optional<QString> at(int place) const;

private:
    /// A number, perhaps at the end of a text.
    struct Number
    {
        QString before; ///< the text before it
        qint64 value = 0; ///< without its decimal point
        int decimals = 0;
        int digits = 0; ///< before the decimal point, where zeros lead; else 0
        bool isCode = false;
    };

    static std::optional<Number> codeOf(const QString &text);
    static std::optional<Number> numberOf(const QString &text, bool decimalsBehindText);
    bool findStep(std::vector<Number> numbers);
    QString textOf(qint64 value) const;

    std::vector<QString> m_given;
    bool m_counts = false;
    bool m_dropsZeros = false; ///< the numbers that were given have different counts of decimals
    Number m_last;
    qint64 m_step = 1;
};

/// How many of the texts of a column a series goes on from: those above the first that is empty or, below the topmost,
/// still as in an added row; the first two where there is none such. 0: there is nothing to go on from.
int givenTexts(const std::vector<QString> &texts, QStringView added);
