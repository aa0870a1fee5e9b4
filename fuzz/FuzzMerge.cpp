// Any three parameter files, parted by a zero byte: compared, patched and merged.

#include "document/PrFileCodec.h"
#include "fuzz/Law.h"
#include "runtime/AnsiText.h"
#include "tool/DiffJson.h"
#include "tool/SheetMerge.h"
#include "tool/SheetPatch.h"

#include <algorithm>
#include <array>

namespace {

const DiffOptions exactly{.isExact = true, .fields = {}};
// A section may claim 32,767 rows for a file of fifty bytes; the fuzzer is to spend its time on other things.
constexpr qsizetype mostRows = 200;

Sheet sheetOfBytes(const QByteArray &bytes, const AnsiCodePage &page)
{
    DecodedPrFile decoded = decodePrFile(bytes, page);
    Document &document = decoded.document;
    document.rows.resize(decoded.outcome ? std::clamp<qsizetype>(document.machine.Paramater, 0, mostRows) : 0);
    return sheetOf(document);
}

bool isSheet(const MergedSheet &merged, const Sheet &expected)
{
    return merged.conflicts.isEmpty() && merged.sheet == expected;
}

/// Whether one side removed what the other changed: the side that is ours decides then what there is to put in order.
bool hasRemoval(const MergedSheet &merged)
{
    return std::ranges::any_of(merged.conflicts, [](const MergeConflict &conflict) {
        return conflict.kind == MergeConflict::Kind::RemovedByUs || conflict.kind == MergeConflict::Kind::RemovedByThem;
    });
}

void compare(const Sheet &before, const Sheet &after)
{
    require(diffSheets(before, before).isEmpty(), "a file has no difference to itself");
    const SheetDiff diff = diffSheets(before, after, exactly);
    const ReadDiff read = diffFromJson(diffAsJson(diff, {}));
    require(!read.failure && read.diff == diff, "differences come back");
    const PatchedSheet patched = patchSheet(before, read.diff, true);
    require(patched.rejections.isEmpty(), "the differences fit the earlier file");
    require(patched.sheet == after, "they make the later one of it");
}

void merge(const Sheet &base, const Sheet &ours, const Sheet &theirs)
{
    require(isSheet(mergeSheets(base, ours, base), ours), "merging with no change gives ours");
    require(isSheet(mergeSheets(base, base, theirs), theirs), "merging into no change gives theirs");
    require(isSheet(mergeSheets(base, ours, ours), ours), "merging the same change gives it");
    const MergedSheet merged = mergeSheets(base, ours, theirs);
    const MergedSheet reversed = mergeSheets(base, theirs, ours);
    require(hasRemoval(merged) || merged.conflicts.size() == reversed.conflicts.size(),
        "the conflicts are the same from both sides");
    require(!merged.conflicts.isEmpty() || merged.sheet == reversed.sheet, "a merge is the same from both sides");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const AnsiCodePage &page = AnsiCodePage::page(size % 2 != 0 ? 932 : 1252);
    const QList<QByteArray> pieces = QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)).split('\0');
    std::array<Sheet, 3> sheets;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        sheets[i] = sheetOfBytes(pieces.value(qsizetype(i)), page);
    }
    compare(sheets[0], sheets[1]);
    merge(sheets[0], sheets[1], sheets[2]);
    return 0;
}
