#include "check/NumberKey.h"

#include "document/FieldText.h"
#include "runtime/NumberText.h"

QString numberKey(const QString &number)
{
    if (isNormalizedNum(number)) {
        return number;
    }
    const auto value = numericValue(number);
    return value ? doubleText(*value) : number.trimmed();
}
