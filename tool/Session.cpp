#include "tool/Session.h"

using namespace Qt::StringLiterals;

Painter Session::painter(const QString &fileName) const
{
    const bool isFile = !fileName.isEmpty() && fileName != "-"_L1;
    return Painter(isFile ? color == ColorUse::Always : isOutputColored(color));
}

void Session::say(const QString &text)
{
    err.put(u"tabrix-tool: "_s + text + u'\n');
    err.flush();
}
