#pragma once

#include "resources/Texts.h"

#include <QString>

#include <array>

/// Function groups that a parameter can belong to; group i is bit i of its functional list code. Bit 15 has none.
inline constexpr int FunctionGroupCount = 15;

/// The two sets of group labels. Which one a document has follows from its file's name.
enum class FunctionLabels { Normal, Kqm3 };

/// For each group whether it is ticked.
using FunctionGroups = std::array<bool, FunctionGroupCount>;

/// The file's name in capitals, without folders, up to its first ".".
QString modelName(const QString &filePath);

/// The label set of the document stored under filePath.
FunctionLabels functionLabels(const QString &filePath);

/// Whether the label set has that group (0 to 14) at all.
bool hasFunctionGroup(FunctionLabels labels, int group);

/// A group's label; to be asked only for a group that the set has.
Text functionGroupText(FunctionLabels labels, int group);

/// The groups of a code; a group that the set does not have is never ticked.
FunctionGroups groupsOfCode(qint16 code, FunctionLabels labels);

/// The code of the ticked groups; bits that the set has no group for come out as 0.
qint16 codeOfGroups(const FunctionGroups &groups, FunctionLabels labels);
