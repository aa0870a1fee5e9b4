#include "tool/CheckCommand.h"
#include "tool/ConvertCommand.h"
#include "tool/DiffCommand.h"
#include "tool/FormatCommand.h"
#include "tool/GitSetupCommand.h"
#include "tool/MergeCommand.h"
#include "tool/PatchCommand.h"
#include "tool/PrintCommand.h"
#include "tool/ShowCommand.h"
#include "tool/TextCommand.h"

std::span<const Command> toolCommands()
{
    static const Command all[] = {checkCommand, diffCommand, patchCommand, mergeCommand, convertCommand, textCommand,
        formatCommand, showCommand, printCommand, gitSetupCommand};
    return all;
}
