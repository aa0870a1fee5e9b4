#include "check/FileCheck.h"

#include "check/ContentCheck.h"
#include "check/HeaderCheck.h"
#include "check/MachineCheck.h"
#include "check/PlainContent.h"
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

/// The same where the rows come back as they are. document: without them.
void addSaveFindings(const QByteArray &bytes, QByteArrayView rows, const Document &document, Findings &findings)
{
    const EncodedPrFile written = encodedWhole(document);
    if (written.isWritable() && written.bytes != QByteArrayView(bytes.begin(), rows.begin())) {
        addHeaderFindings(bytes, written.bytes, document, findings);
        addLayoutFinding(findings);
    }
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

/// The findings of a file whose rows are all plain, so that a save can change the machine information alone;
/// std::nullopt for any other.
std::optional<Findings> checkPlainFile(const QByteArray &bytes, const AnsiCodePage &page, const QString &fileName)
{
    Document document{.machine = {}, .rows = {}, .codePage = page.number()};
    MachineInfo &machine = document.machine;
    const QByteArrayView rows = rowsOfFile(bytes);
    if (rows.isNull() || !PrFileDecoder(bytes, page).decodeMachine(machine)) {
        return std::nullopt;
    }
    PlainContent content({functionLabels(fileName), page.number()});
    if (!content.read(rows) || content.rowCount() != machine.Paramater) {
        return std::nullopt;
    }
    Findings findings;
    if (machine.Name.isEmpty()) {
        findings.append(noModelName());
    }
    addReadBackFindings(checkMachineReadBack(machine, content.rowCount() > 0, page), findings);
    findings += checkMachine(machine);
    findings += content.check();
    addSaveFindings(bytes, rows, document, findings);
    return sorted(std::move(findings));
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
    const auto findings = checkPlainFile(bytes, page, fileName);
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
