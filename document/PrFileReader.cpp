#include "document/DocumentTables.h"
#include "document/FileHost.h"
#include "document/PrFile.h"
#include "document/PrFileCodec.h"
#include "runtime/AnsiText.h"
#include "runtime/WholeFile.h"
#include "storage/KnownFiles.h"

using namespace Qt::StringLiterals;

namespace {

/// What was read before a failure stays in the tables.
std::optional<FileFailure> decodeToTables(const QByteArray &bytes, qint16 docNo, FileHost &host)
{
    const AnsiCodePage &page = pageOfBytes(bytes, ansiCodePage());
    setDocumentCodePage(docNo, page.number());
    PrFileDecoder decoder(bytes, page);
    MachineInfo &machine = MachineInfos[docNo];
    if (auto failure = decoder.decodeMachine(machine)) {
        return failure;
    }
    auto failure = decoder.decodeRows(machine.Paramater, PrRecords, [&host] { host.runPendingEvents(); });
    if (decoder.findings()) {
        setReadFindings(docNo, *decoder.findings());
    }
    return failure;
}

std::optional<FileFailure> readFile(const QString &fileName, qint16 docNo, FileHost &host)
{
    if (docNo < 1 || docNo > documentUpperBound()) {
        return FileFailure::of(RunTimeError::SubscriptOutOfRange);
    }
    forgetReadFindings(docNo);
    QByteArray bytes;
    const FileStamp stamp = FileStamp::of(fileName);
    if (const auto error = readWholeFile(fileName, bytes)) {
        return FileFailure::of(*error);
    }
    noteReadFile(docNo, fileName, stamp, bytes);
    return decodeToTables(bytes, docNo, host);
}

} // namespace

bool ReadPrFile(const QString &fileName, qint16 docNo, FileHost &host)
{
    if (fileName.isEmpty()) {
        host.showMessage(u"No File"_s);
        return true;
    }
    const auto failure = readFile(fileName, docNo, host);
    if (failure && failure->text) {
        host.showFailure(*failure, fileName);
    }
    return failure.has_value();
}
