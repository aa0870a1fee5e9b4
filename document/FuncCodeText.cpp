#include "document/FuncCodeText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct LabelSet
{
    quint16 groups; ///< bit i: the set has group i
    Text firstText; ///< group 0's label, the others follow
};

// By FunctionLabels.
constexpr LabelSet labelSets[] = {{0x0FFF, Text::FuncFirstGroup}, {0x7EFF, Text::FuncFirstGroupOfKqm3}};

const LabelSet &labelSet(FunctionLabels labels)
{
    return labelSets[static_cast<int>(labels)];
}

} // namespace

QString modelName(const QString &filePath)
{
    // A file's path may come with either separator, whatever system it is opened on.
    const qsizetype folderEnd = std::max(filePath.lastIndexOf(u'\\'), filePath.lastIndexOf(u'/'));
    return filePath.mid(folderEnd + 1).section(u'.', 0, 0).toUpper();
}

FunctionLabels functionLabels(const QString &filePath)
{
    return modelName(filePath).startsWith("KQM3"_L1) ? FunctionLabels::Kqm3 : FunctionLabels::Normal;
}

bool hasFunctionGroup(FunctionLabels labels, int group)
{
    return labelSet(labels).groups >> group & 1;
}

Text functionGroupText(FunctionLabels labels, int group)
{
    return textAfter(labelSet(labels).firstText, group);
}

FunctionGroups groupsOfCode(qint16 code, FunctionLabels labels)
{
    const unsigned known = static_cast<quint16>(code) & labelSet(labels).groups;
    FunctionGroups groups{};
    for (int group = 0; group < FunctionGroupCount; ++group) {
        groups[group] = known >> group & 1;
    }
    return groups;
}

qint16 codeOfGroups(const FunctionGroups &groups, FunctionLabels labels)
{
    unsigned code = 0;
    for (int group = 0; group < FunctionGroupCount; ++group) {
        code |= unsigned(groups[group]) << group;
    }
    return static_cast<qint16>(code & labelSet(labels).groups);
}
