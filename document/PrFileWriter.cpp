#include "document/CollectPrRecords.h"
#include "document/DocumentTables.h"
#include "document/FileFailure.h"
#include "document/FileReplacement.h"
#include "document/KnownFiles.h"
#include "document/PrFile.h"
#include "document/PrFileCodec.h"
#include "document/ReadBackCheck.h"
#include "document/SaveHost.h"
#include "document/SaveLock.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

using namespace Qt::StringLiterals;

namespace {

/// The busy pointer, for as long as this object lives.
class HostBusy
{
public:
    explicit HostBusy(FileHost &host) : m_host(host) { m_host.setBusy(true); }
    ~HostBusy() { m_host.setBusy(false); }
    Q_DISABLE_COPY_MOVE(HostBusy)

private:
    FileHost &m_host;
};

std::optional<FileFailure> setParamater(const PrFileSource &source)
{
    const auto count = toInt16(double(source.grid.rowCount()));
    if (const auto *error = std::get_if<RunTimeError>(&count)) {
        return FileFailure::of(*error);
    }
    MachineInfos[source.docNo].Paramater = std::get<qint16>(count);
    return std::nullopt;
}

/// Replaces the file unless the user wants to keep what another program put there. That is looked for, and replaced,
/// under a lock; while the user thinks, others may save.
std::optional<FileFailure> replaceUnlessChanged(
    const QString &fileName, const EncodedPrFile &encoded, const PrFileSource &source, SaveHost &host)
{
    ForeignChangeGuard guard(source.docNo, fileName);
    if (source.mayReplace) {
        guard.agreeToPresent();
    }
    while (true) {
        SaveLock lock(fileName);
        if (lock.isTaken()) {
            return FileFailure{OwnText::FileBeingSaved};
        }
        const auto change = guard.find();
        if (!change) {
            const Extent extent = encoded.isPart ? Extent::Part : Extent::Whole;
            auto failure = replaceFile(fileName, encoded.bytes, extent, host);
            failure ? guard.noteLeftOver() : guard.noteWritten(encoded.bytes);
            return failure;
        }
        lock.release();
        if (!host.askYesNo({*change}, fileName)) {
            return FileFailure::silent();
        }
        guard.agree();
    }
}

/// Whether all comes back from the file, or the user wants it written like this.
bool mayBeWritten(const QString &fileName, const Document &document, SaveHost &host)
{
    const auto findings = findReadBackFaults(document.machine, document.rows, AnsiCodePage::page(document.codePage));
    if (findings.isEmpty() || host.askToWrite(findings, fileName)) {
        return true;
    }
    host.showPlace(findings.first().place);
    return false;
}

std::optional<FileFailure> writeDocument(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const Document document{MachineInfos[source.docNo], PrRecords, documentCodePage(source.docNo)};
    const EncodedPrFile encoded = encodePrFile(document, [&host] { host.runPendingEvents(); });
    if (!encoded.isWritable()) {
        return encoded.failure;
    }
    if (!mayBeWritten(fileName, document, host)) {
        return FileFailure::silent();
    }
    const auto failure = replaceUnlessChanged(fileName, encoded, source, host);
    return failure ? failure : encoded.failure;
}

std::optional<FileFailure> writeFile(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const HostBusy busy(host);
    if (fileName.isEmpty()) {
        return FileFailure::silent();
    }
    if (source.docNo < 1 || source.docNo > documentUpperBound()) {
        return FileFailure::of(RunTimeError::SubscriptOutOfRange);
    }
    if (const auto error = CollectPrRecords(source.grid)) {
        return FileFailure::of(*error);
    }
    if (auto failure = setParamater(source)) {
        return failure;
    }
    auto failure = writeDocument(fileName, source, host);
    if (!failure) {
        DocFlags[source.docNo].changed = false;
        forgetReadFindings(source.docNo);
    }
    return failure;
}

} // namespace

bool WritePrFile(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const auto failure = writeFile(fileName, source, host);
    if (failure && failure->text) {
        host.showFailure(*failure, fileName);
    }
    if (failure && failure->place) {
        host.showPlace(*failure->place);
    }
    return failure.has_value();
}
