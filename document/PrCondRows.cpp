#include "document/PrCondRows.h"

#include "runtime/NumberText.h"

using namespace Qt::StringLiterals;

namespace {

bool isBlank(const QString &text)
{
    return text.trimmed().isEmpty();
}

QString relationCell(const PrCondition &condition)
{
    return condition.kind & PrCondition::NotEqual ? u"<>"_s : u"="_s;
}

QString relationSign(const QString &cell)
{
    return cell == "<>"_L1 ? u"/"_s : u"="_s;
}

QString modeCell(const QString &number, const QStringList &modeNames)
{
    const auto index = toInt16(number);
    return index && *index >= 0 && *index < modeNames.size() ? modeNames[*index] : number;
}

QString modeNumber(const QString &cell, const QStringList &modeNames)
{
    // A drop-down without a choice shows its first item.
    const qsizetype index = isBlank(cell) ? 0 : modeNames.indexOf(cell);
    // A number without a name came from the file and goes back there.
    return index < 0 ? cell : QString::number(index);
}

bool isParameterComplete(const QStringList &row)
{
    return !isBlank(row[0]) && isNumeric(row[2]);
}

QString parameterCondition(const QStringList &row)
{
    const QString condition = row[0] + relationSign(row[1]) + row[2];
    return isNumeric(row[3]) ? condition + u'-' + row[3] : condition;
}

} // namespace

PrCondRows rowsOfConditions(std::span<const PrCondition> conditions, const QStringList &modeNames)
{
    PrCondRows rows;
    for (const PrCondition &condition : conditions) {
        const QString relation = relationCell(condition);
        if (condition.subject == "OP"_L1) {
            rows[OptionGrid] << QStringList{relation, condition.value1};
        } else if (condition.subject == "MODE"_L1) {
            rows[ModeGrid] << QStringList{relation, modeCell(condition.value1, modeNames)};
        } else {
            rows[ParameterGrid] << QStringList{condition.subject, relation, condition.value1, condition.value2};
        }
    }
    return rows;
}

PrCondResult conditionsOfRows(const PrCondRows &rows, const QStringList &modeNames)
{
    QStringList conditions;
    for (const QStringList &row : rows[OptionGrid]) {
        if (!isBlank(row[1])) {
            conditions << u"OP"_s + relationSign(row[0]) + row[1];
        }
    }
    for (const QStringList &row : rows[ParameterGrid]) {
        if (isParameterComplete(row)) {
            conditions << parameterCondition(row);
        }
    }
    for (const QStringList &row : rows[ModeGrid]) {
        conditions << u"MODE"_s + relationSign(row[0]) + modeNumber(row[1], modeNames);
    }
    return {static_cast<qint16>(conditions.size()), conditions.join(u',')};
}
