#include "tool/CheckCommand.h"
#include "tool/ConvertCommand.h"
#include "tool/DiffCommand.h"
#include "tool/FormatCommand.h"
#include "tool/GitSetupCommand.h"
#include "tool/HelpCommand.h"
#include "tool/MergeCommand.h"
#include "tool/PatchCommand.h"
#include "tool/PrintCommand.h"
#include "tool/ShowCommand.h"
#include "tool/TextCommand.h"

#include <algorithm>

std::span<const Command> toolCommands()
{
    static const Command all[] = {checkCommand, diffCommand, patchCommand, mergeCommand, convertCommand, textCommand,
        formatCommand, showCommand, printCommand, gitSetupCommand, helpCommand};
    return all;
}

const Command *commandNamed(QStringView name)
{
    const auto all = toolCommands();
    const auto found = std::ranges::find_if(all, [name](const Command &command) { return command.name == name; });
    return found == all.end() ? nullptr : &*found;
}
