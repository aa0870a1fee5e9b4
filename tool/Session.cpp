#include "tool/Session.h"

using namespace Qt::StringLiterals;

void Session::say(const QString &text)
{
    err.put(u"tabrix-tool: "_s + text + u'\n');
    err.flush();
}
