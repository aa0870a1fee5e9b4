#include "document/CollectPrRecords.h"
#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "document/PrFileCodec.h"
#include "document/ReadBackCheck.h"
#include "document/SaveHost.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"
#include "storage/FileReplacement.h"
#include "storage/KnownFiles.h"
#include "storage/SaveLock.h"

using namespace Qt::StringLiterals;

namespace {

/// The busy cursor, for as long as this object lives.
class HostBusy
{
public:
    explicit HostBusy(FileHost &host) : m_host(host) { m_host.setBusy(true); }
    ~HostBusy() { m_host.setBusy(false); }
    Q_DISABLE_COPY_MOVE(HostBusy)

private:
    FileHost &m_host;
};

Result<> setParamater(const PrFileSource &source)
{
    const auto count = toInt16(double(source.grid.rowCount()));
    if (!count) {
        return count.failure();
    }
    MachineInfos[source.docNo].Paramater = *count;
    return {};
}

/// Looks at the file and replaces it under one lock. If something is in the way that the user may agree to, this fails
/// with nothing touched.
Result<> replaceLocked(const QString &fileName, const NewContent &content, ForeignChangeGuard &guard)
{
    const SaveLock lock(fileName);
    if (lock.isTaken()) {
        return FailureCode::FileBeingSaved;
    }
    if (auto unchanged = guard.check(); !unchanged) {
        return unchanged;
    }
    auto replaced = replaceFile(fileName, content);
    if (replaced) {
        guard.noteWritten(content.bytes);
    } else if (replaced.failure().code != FailureCode::VersionNotKept) {
        guard.noteLeftOver();
    }
    return replaced;
}

/// Whether the user agrees to what keeps the file from being replaced, and what he agreed to is noted.
bool isAgreedTo(
    const Failure &obstacle, const QString &fileName, ForeignChangeGuard &guard, NewContent &content, SaveHost &host)
{
    if (!host.askToReplace(obstacle, fileName)) {
        return false;
    }
    if (obstacle.code == FailureCode::VersionNotKept) {
        content.mayLoseEarlier = true;
    } else {
        guard.agree();
    }
    return true;
}

bool mayBeAgreedTo(const Failure &failure)
{
    return failure.code == FailureCode::FileChanged || failure.code == FailureCode::FileAppeared
        || failure.code == FailureCode::VersionNotKept;
}

/// Replaces the file as the user agrees to it. While he thinks, others may save: each answer is followed by a new look.
Result<> replaceAsAgreed(const QString &fileName, NewContent content, const PrFileSource &source, SaveHost &host)
{
    ForeignChangeGuard guard(source.docNo, fileName);
    if (source.mayReplace) {
        guard.agreeToPresent();
    }
    while (true) {
        auto replaced = replaceLocked(fileName, content, guard);
        if (replaced || !mayBeAgreedTo(replaced.failure())) {
            return replaced;
        }
        if (!isAgreedTo(replaced.failure(), fileName, guard, content, host)) {
            return FailureCode::Declined;
        }
    }
}

/// Whether all comes back from the file, or the user wants it written like this.
bool mayBeWritten(const QString &fileName, const Document &document, SaveHost &host)
{
    const auto findings = findReadBackFaults(document.machine, document.rows, AnsiCodePage::page(document.codePage));
    if (findings.isEmpty() || host.askToWrite(findings, fileName)) {
        return true;
    }
    host.showCell(findings.first().cell);
    return false;
}

Result<> writeDocument(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const Document document{MachineInfos[source.docNo], PrRecords, documentCodePage(source.docNo)};
    const EncodedPrFile encoded = encodePrFile(document, [&host] { host.runPendingEvents(); });
    if (!encoded.isWritable()) {
        return encoded.outcome;
    }
    if (!mayBeWritten(fileName, document, host)) {
        return FailureCode::Declined;
    }
    const Extent extent = encoded.isPart ? Extent::Part : Extent::Whole;
    auto replaced = replaceAsAgreed(fileName, {.bytes = encoded.bytes, .extent = extent}, source, host);
    return replaced ? encoded.outcome : replaced;
}

Result<> writeFile(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const HostBusy busy(host);
    if (fileName.isEmpty()) {
        return FailureCode::NoFileName;
    }
    if (source.docNo < 1 || source.docNo > documentUpperBound()) {
        return FailureCode::SubscriptOutOfRange;
    }
    if (auto collected = CollectPrRecords(source.grid); !collected) {
        return collected;
    }
    if (auto set = setParamater(source); !set) {
        return set;
    }
    auto written = writeDocument(fileName, source, host);
    if (written) {
        DocFlags[source.docNo].changed = false;
        forgetReadFindings(source.docNo);
    }
    return written;
}

} // namespace

bool WritePrFile(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const auto written = writeFile(fileName, source, host);
    if (written) {
        return false;
    }
    const Failure &failure = written.failure();
    if (!failure.isSilent()) {
        host.showFailure(failure, fileName);
    }
    if (failure.cell) {
        host.showCell(*failure.cell);
    }
    return true;
}
