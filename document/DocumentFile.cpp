#include "document/DocumentFile.h"

#include "document/PrFileCodec.h"
#include "document/SaveHost.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"
#include "runtime/WholeFile.h"
#include "storage/FileReplacement.h"
#include "storage/SaveLock.h"

namespace {

/// Replaces one file by one content, as the user agrees to it.
class Replacement
{
public:
    Replacement(const QString &fileName, const NewContent &content, DocumentOrigin &origin, SaveHost &host)
        : m_fileName(fileName), m_content(content), m_guard(origin.file, fileName), m_host(host)
    {
    }

    /// The user has agreed already, whatever is in the file.
    void agreeToPresent() { m_guard.agreeToPresent(); }
    Result<> run();

private:
    Result<> replaceLocked();
    bool isAgreedTo(const Failure &obstacle);

    QString m_fileName;
    NewContent m_content;
    ForeignChangeGuard m_guard;
    SaveHost &m_host;
};

bool mayBeAgreedTo(const Failure &failure)
{
    return failure.code == FailureCode::FileChanged || failure.code == FailureCode::FileAppeared
        || failure.code == FailureCode::VersionNotKept;
}

/// While the user thinks, others may save: each answer is followed by a new look.
Result<> Replacement::run()
{
    while (true) {
        auto replaced = replaceLocked();
        if (replaced || !mayBeAgreedTo(replaced.failure())) {
            return replaced;
        }
        if (!isAgreedTo(replaced.failure())) {
            return FailureCode::Declined;
        }
    }
}

/// Looks at the file and replaces it under one lock. After a failure that may be agreed to, nothing was touched.
Result<> Replacement::replaceLocked()
{
    const SaveLock lock(m_fileName);
    if (lock.isTaken()) {
        return FailureCode::FileBeingSaved;
    }
    if (auto unchanged = m_guard.check(); !unchanged) {
        return unchanged;
    }
    auto replaced = replaceFile(m_fileName, m_content);
    if (replaced) {
        m_guard.noteWritten(m_content.bytes);
    } else if (!mayBeAgreedTo(replaced.failure())) {
        m_guard.noteLeftOver();
    }
    return replaced;
}

bool Replacement::isAgreedTo(const Failure &obstacle)
{
    if (!m_host.askToReplace(obstacle, m_fileName)) {
        return false;
    }
    if (obstacle.code == FailureCode::VersionNotKept) {
        m_content.mayLoseEarlier = true;
    } else {
        m_guard.agree();
    }
    return true;
}

/// Whether all comes back from the file, or the user wants it written like this.
bool mayBeWritten(const QString &fileName, const QList<ReadBackFinding> &findings, SaveHost &host)
{
    if (findings.isEmpty() || host.askToWrite(findings, fileName)) {
        return true;
    }
    host.showCell(findings.first().cell);
    return false;
}

Result<> write(const QString &fileName, const EncodedGrid &encoded, const SaveSource &source, SaveHost &host)
{
    if (!encoded.isWritable()) {
        return encoded.outcome;
    }
    if (!mayBeWritten(fileName, encoded.findings, host)) {
        return FailureCode::Declined;
    }
    const NewContent content{.bytes = encoded.bytes, .extent = encoded.isPart ? Extent::Part : Extent::Whole};
    Replacement replacement(fileName, content, source.origin, host);
    if (source.mayReplace) {
        replacement.agreeToPresent();
    }
    auto replaced = replacement.run();
    return replaced ? encoded.outcome : replaced;
}

template <typename Rows>
Result<> read(const QString &fileName, const ReadTarget &target, Rows &rows, FileHost &host)
{
    target.origin.findings.reset();
    const FileStamp stamp = FileStamp::of(fileName);
    const auto bytes = readWholeFile(fileName);
    if (!bytes) {
        return bytes.failure();
    }
    target.origin.file = KnownFile::read(fileName, stamp, *bytes);
    const AnsiCodePage &page = pageOfBytes(*bytes, ansiCodePage());
    target.origin.codePage = page.number();
    PrFileDecoder decoder(*bytes, page);
    if (auto decoded = decoder.decodeMachine(target.machine); !decoded) {
        return decoded;
    }
    auto decoded = decoder.decodeRows(target.machine.Paramater, rows, [&host] { host.runPendingEvents(); });
    target.origin.findings = decoder.findings();
    return decoded;
}

} // namespace

int DocumentOrigin::codePageNumber() const
{
    return codePage == 0 ? ansiCodePageNumber() : codePage;
}

Result<> readDocument(const QString &fileName, const ReadTarget &target, QList<PrRecord> &rows, FileHost &host)
{
    return read(fileName, target, rows, host);
}

Result<> readDocument(const QString &fileName, const ReadTarget &target, std::vector<CellRow> &rows, FileHost &host)
{
    return read(fileName, target, rows, host);
}

Result<> saveDocument(const QString &fileName, const SaveSource &source, SaveHost &host)
{
    const HostBusy busy(host);
    if (fileName.isEmpty()) {
        return FailureCode::NoFileName;
    }
    const auto rowCount = toInt16(double(source.grid.rowCount()));
    if (!rowCount) {
        return rowCount.failure();
    }
    MachineInfo machine = source.machine;
    machine.Paramater = *rowCount;
    const EncodedGrid encoded = encodePrFile(
        GridDocument{machine, source.grid, source.origin.codePageNumber()}, [&host] { host.runPendingEvents(); });
    const bool isOverflow = !encoded.outcome && encoded.outcome.failure().code == FailureCode::Overflow;
    if (!isOverflow) {
        source.machine.Paramater = *rowCount;
    }
    auto written = write(fileName, encoded, source, host);
    if (written) {
        source.origin.findings.reset();
    }
    return written;
}

void tellOfFailure(const Failure &failure, const QString &fileName, SaveHost &host)
{
    if (!failure.isSilent()) {
        host.showFailure(failure, fileName);
    }
    if (failure.cell) {
        host.showCell(*failure.cell);
    }
}
