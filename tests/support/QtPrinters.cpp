#include "tests/support/QtPrinters.h"

#include <ostream>

QT_BEGIN_NAMESPACE
void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    QByteArray shown;
    for (const char byte : bytes) {
        if (byte >= ' ' && byte < 127) {
            shown += byte;
        } else {
            shown += "\\x" + QByteArray(1, byte).toHex();
        }
    }
    *out << '"' << shown.toStdString() << '"';
}
QT_END_NAMESPACE
