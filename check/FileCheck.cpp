#include "check/FileCheck.h"

#include "check/ContentCheck.h"
#include "check/FileRows.h"
#include "check/HeaderCheck.h"
#include "check/MachineCheck.h"
#include "check/ReadBackFindings.h"
#include "check/RowSaveCheck.h"
#include "check/SavedForm.h"
#include "document/FuncCodeText.h"
#include "document/PlainRow.h"
#include "document/PrFileCodec.h"
#include "runtime/AnsiText.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

Finding noModelName()
{
    return {CheckId::NoModelName, {}, u"Name"_s};
}

void addReadFindings(const ReadFindings &read, Findings &findings)
{
    const QStringList counts = {QString::number(read.rowsAnnounced), QString::number(read.rowsFound)};
    if (read.rowsFound < read.rowsAnnounced) {
        findings.append({CheckId::RowsMissing, {}, u"Paramater"_s, counts});
    } else if (read.rowsFound > read.rowsAnnounced) {
        findings.append({CheckId::RowBeyondCount, {.row = read.rowsFound}, u"Paramater"_s, counts});
    }
    if (read.cutRow != 0) {
        findings.append({CheckId::LastFieldOpen, {.row = read.cutRow}});
    }
}

/// Whether a save would change the bytes, and nothing that was found says so.
bool isUnexplained(const Findings &findings)
{
    return std::ranges::none_of(findings, [](const Finding &finding) {
        return checkInfo(finding.id).severity == Severity::Error || finding.id == CheckId::LineDropped
            || finding.id == CheckId::SpelledOtherwise || finding.id == CheckId::LastFieldOpen;
    });
}

/// The bytes that a save would write. A capacity without its current, which would end the file, gets an empty one.
EncodedPrFile encodedWhole(Document saved)
{
    QStringList &currents = saved.machine.ICapacity;
    currents.resize(std::max(currents.size(), saved.machine.Capacity.size()));
    return encodePrFile(saved);
}

/// bytes: of the file; written: what a save writes, at least up to the rows.
void addHeaderFindings(const QByteArray &bytes, const QByteArray &written, const Document &document, Findings &findings)
{
    if (!document.machine.Name.isEmpty()) {
        findings += checkHeader(bytes, written, AnsiCodePage::page(document.codePage));
    }
}

/// To be called once all else is found that a save would change.
void addLayoutFinding(Findings &findings)
{
    if (isUnexplained(findings)) {
        findings.append({CheckId::LayoutDiffers});
    }
}

/// found: the rows that are in the file.
void addSaveFindings(const QByteArray &bytes, const Document &document, qsizetype found, Findings &findings)
{
    const auto saved = savedForm(document);
    const EncodedPrFile written = saved ? encodedWhole(*saved) : EncodedPrFile();
    if (!saved || !written.isWritable() || written.bytes == bytes) {
        return;
    }
    addHeaderFindings(bytes, written.bytes, document, findings);
    const QList<PrRecord> rows = document.rows.first(found);
    findings += checkSavedRows({.bytes = bytes, .rows = rows}, {.bytes = written.bytes, .rows = saved->rows},
        AnsiCodePage::page(document.codePage), findings);
    addLayoutFinding(findings);
}

/// Whether the bytes of a row end where the reader ends the row, whatever follows them.
bool isOneRow(QByteArrayView bytes, const AnsiCodePage &page)
{
    PlainRowReader reader(bytes, page);
    PrRecord record;
    return reader.decodeNext(record) && reader.atEnd();
}

/// What a save makes of the rows that it may change; std::nullopt if it could not write them.
std::optional<std::vector<SavedRow>> changedRows(const FileRows &rows, const AnsiCodePage &page)
{
    std::vector<SavedRow> changed;
    for (const FileRows::Decoded &row : rows.decoded()) {
        const auto saved = savedForm(row.record);
        const auto written = saved ? encodeRow(*saved, page) : std::nullopt;
        if (!written) {
            return std::nullopt;
        }
        if (*written != row.bytes) {
            changed.push_back({row.row + 1, row.record, *saved, row.bytes, *written});
        }
    }
    return changed;
}

/// The same by the rows that a save may change, without the others. False if only all of them tell: if a row was
/// written that is read as more or less than one. document: without rows; header: the bytes before them.
bool addSaveFindings(
    const QByteArray &bytes, QByteArrayView header, const FileRows &rows, const Document &document, Findings &findings)
{
    const AnsiCodePage &page = AnsiCodePage::page(document.codePage);
    const EncodedPrFile written = encodedWhole(document);
    const auto changed = changedRows(rows, page);
    if (!written.isWritable() || !changed || (changed->empty() && written.bytes == header)) {
        return true;
    }
    if (!std::ranges::all_of(*changed, [&page](const SavedRow &row) { return isOneRow(row.written, page); })) {
        return false;
    }
    addHeaderFindings(bytes, written.bytes, document, findings);
    findings += checkSavedRows(*changed, page, findings);
    addLayoutFinding(findings);
    return true;
}

/// A missing model name has been said already.
void addReadBackFindings(const Findings &readBack, Findings &findings)
{
    std::ranges::copy_if(readBack, std::back_inserter(findings),
        [](const Finding &finding) { return finding.id != CheckId::NoModelName; });
}

Findings sorted(Findings findings)
{
    std::ranges::stable_sort(
        findings, {}, [](const Finding &finding) { return std::pair(finding.place.row, finding.place.column); });
    return findings;
}

/// The findings of a file that can be read and has as many rows as it says, with only those rows decoded that have to
/// be; std::nullopt for any other.
std::optional<Findings> checkByRows(const QByteArray &bytes, const AnsiCodePage &page, const QString &fileName)
{
    Document document{.machine = {}, .rows = {}, .codePage = page.number()};
    const MachineInfo &machine = document.machine;
    const QByteArrayView content = rowsOfFile(bytes);
    if (content.isNull() || !PrFileDecoder(bytes, page).decodeMachine(document.machine)) {
        return std::nullopt;
    }
    FileRows rows({functionLabels(fileName), page.number()});
    if (!rows.read(content) || rows.rowCount() != machine.Paramater) {
        return std::nullopt;
    }
    Findings findings;
    if (machine.Name.isEmpty()) {
        findings.append(noModelName());
    }
    addReadBackFindings(checkMachineReadBack(machine, rows.rowCount() > 0, page), findings);
    for (const FileRows::Decoded &row : rows.decoded()) {
        findings += checkRowReadBack(row.record, row.row + 1, page);
    }
    findings += checkMachine(machine);
    findings += rows.checkContent();
    const QByteArrayView header(bytes.begin(), content.begin());
    return addSaveFindings(bytes, header, rows, document, findings) ? std::optional(sorted(std::move(findings)))
                                                                    : std::nullopt;
}

} // namespace

Finding readFailureFinding(const Failure &failure)
{
    const FilePosition at = failure.position.value_or(FilePosition{});
    const QStringList where = {QString::number(at.field), QString::number(at.offset)};
    const CellPosition place{.row = at.row, .column = 0};
    switch (failure.code) {
    case FailureCode::NoParameterSection:
        return {CheckId::NoParameterSection};
    case FailureCode::InputPastEnd:
        return {CheckId::FileEndsInRow, place, {}, where};
    case FailureCode::SubscriptOutOfRange:
        if (at.row > 0) {
            return {at.field == 0 ? CheckId::TooManyRows : CheckId::NegativeCount, place, {}, where};
        }
        return {CheckId::NegativeCount, {}, u"Paramater"_s, where};
    default:
        return at.row > 0 ? Finding{CheckId::NumberTooLarge, place, {}, where}
                          : Finding{CheckId::CountNotANumber, {}, u"Paramater"_s, where};
    }
}

Findings checkFile(const QByteArray &bytes, const AnsiCodePage &page, const QString &fileName)
{
    const auto findings = checkByRows(bytes, page, fileName);
    return findings ? *findings : checkDecodedFile(bytes, page, fileName);
}

Findings checkDecodedFile(const QByteArray &bytes, const AnsiCodePage &page, const QString &fileName)
{
    DecodedPrFile decoded = decodePrFile(bytes, page);
    Document &document = decoded.document;
    Findings findings;
    if (document.machine.Name.isEmpty()) {
        findings.append(noModelName());
    }
    if (!decoded.outcome) {
        findings.append(readFailureFinding(decoded.outcome.failure()));
        return findings;
    }
    addReadFindings(*decoded.findings, findings);
    document.rows.resize(document.machine.Paramater);
    const qsizetype found = std::min<qsizetype>(decoded.findings->rowsFound, document.rows.size());
    addReadBackFindings(checkReadBack(document), findings);
    findings += checkMachine(document.machine);
    findings += checkContent(document.rows.first(found), {functionLabels(fileName), page.number()});
    addSaveFindings(bytes, document, found, findings);
    return sorted(std::move(findings));
}
