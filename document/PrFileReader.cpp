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
Result<> decodeToTables(const QByteArray &bytes, qint16 docNo, FileHost &host)
{
    const AnsiCodePage &page = pageOfBytes(bytes, ansiCodePage());
    setDocumentCodePage(docNo, page.number());
    PrFileDecoder decoder(bytes, page);
    MachineInfo &machine = MachineInfos[docNo];
    if (auto decoded = decoder.decodeMachine(machine); !decoded) {
        return decoded;
    }
    auto decoded = decoder.decodeRows(machine.Paramater, PrRecords, [&host] { host.runPendingEvents(); });
    if (decoder.findings()) {
        setReadFindings(docNo, *decoder.findings());
    }
    return decoded;
}

Result<> readFile(const QString &fileName, qint16 docNo, FileHost &host)
{
    if (docNo < 1 || docNo > documentUpperBound()) {
        return FailureCode::SubscriptOutOfRange;
    }
    forgetReadFindings(docNo);
    const FileStamp stamp = FileStamp::of(fileName);
    const auto bytes = readWholeFile(fileName);
    if (!bytes) {
        return bytes.failure();
    }
    noteReadFile(docNo, fileName, stamp, *bytes);
    return decodeToTables(*bytes, docNo, host);
}

} // namespace

bool ReadPrFile(const QString &fileName, qint16 docNo, FileHost &host)
{
    if (fileName.isEmpty()) {
        host.showMessage(u"No File"_s);
        return true;
    }
    const auto read = readFile(fileName, docNo, host);
    if (!read && !read.failure().isSilent()) {
        host.showFailure(read.failure(), fileName);
    }
    return !read;
}
