#include "tests/support/MenuCaptions.h"

#include <QMenu>

QString MenuCaptions::shown()
{
    const auto &[menu, command, english, japanese] = GetParam();
    return command.isEmpty() ? menuInBar(menu).title() : menuCommand(menu, command).text();
}
