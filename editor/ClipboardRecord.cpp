#include "editor/ClipboardRecord.h"

ClipboardRecord &clipboardRecord()
{
    static ClipboardRecord record;
    return record;
}
