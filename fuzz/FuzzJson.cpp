// Any bytes as the JSON of a document, or of the differences of two: read, written, and read again.

#include "fuzz/Law.h"
#include "tool/DiffJson.h"
#include "tool/SheetJson.h"
#include "tool/SheetPatch.h"

namespace {

void sheet(const QByteArray &bytes)
{
    const ReadSheet read = sheetFromJson(bytes);
    if (read.failure) {
        require(!read.failure->isEmpty(), "what is not a document is refused with a reason");
        return;
    }
    const ReadSheet again = sheetFromJson(sheetAsJson(read.sheet));
    require(!again.failure && again.sheet == read.sheet, "a document comes back");
    require(sheetOf(documentOf(read.sheet)).part(SheetPart::Parameters) == read.sheet.part(SheetPart::Parameters),
        "nothing of the parameters is lost");
}

void diff(const QByteArray &bytes)
{
    const ReadDiff read = diffFromJson(bytes);
    if (read.failure) {
        require(!read.failure->isEmpty(), "what is not a list of changes is refused with a reason");
        return;
    }
    const ReadDiff again = diffFromJson(diffAsJson(read.diff, {}));
    require(!again.failure && again.diff == read.diff, "differences come back");
    patchSheet({}, read.diff, true); // whatever they say, of what is not there
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    sheet(bytes);
    diff(bytes);
    return 0;
}
