// Renames a parameter of a file: the document code as a library, without a window, a table, a host or a backup.
//
// usage: rename_parameter IN OUT NUMBER NAME

#include "document/PrFileCodec.h"
#include "runtime/AnsiText.h"
#include "runtime/WholeFile.h"

#include <algorithm>
#include <cstdio>

namespace {

int fail(const char *what, const FilePosition &position = {})
{
    std::fprintf(stderr, "%s (row %d, field %d, byte %lld)\n", what, position.row, position.field,
        static_cast<long long>(position.offset));
    return 1;
}

} // namespace

int main(int count, char **arguments)
{
    constexpr int wanted = 5;
    if (count != wanted) {
        return fail("usage: rename_parameter IN OUT NUMBER NAME");
    }
    const auto argument = [arguments](int i) { return QString::fromLocal8Bit(arguments[i]); };
    const auto bytes = readWholeFile(argument(1));
    if (!bytes) {
        return fail("cannot be read");
    }
    DecodedPrFile decoded = decodePrFile(*bytes, pageOfBytes(*bytes, ansiCodePage()));
    if (!decoded.outcome) {
        return fail("is not a parameter file", decoded.outcome.failure().position.value_or(FilePosition{}));
    }
    QList<PrRecord> &rows = decoded.document.rows;
    rows.resize(decoded.document.machine.Paramater);
    const auto found = std::ranges::find(rows, argument(3), &PrRecord::number);
    if (found == rows.end()) {
        return fail("has no such parameter");
    }
    found->name = argument(4);
    const EncodedPrFile encoded = encodePrFile(decoded.document);
    if (!encoded.isWritable()) {
        return fail("cannot be written in its code page");
    }
    return writeWholeFile(argument(2), encoded.bytes) ? 0 : fail("cannot be written");
}
