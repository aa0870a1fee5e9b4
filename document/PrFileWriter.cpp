#include "document/CollectPrRecords.h"
#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "document/SaveHost.h"

namespace {

Result<> write(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    if (fileName.isEmpty()) {
        const HostBusy busy(host);
        return FailureCode::NoFileName;
    }
    if (source.docNo < 1 || source.docNo > documentUpperBound()) {
        return FailureCode::SubscriptOutOfRange;
    }
    if (auto collected = CollectPrRecords(source.grid); !collected) {
        return collected;
    }
    const SaveSource document{.machine = MachineInfos[source.docNo],
        .grid = source.grid,
        .origin = documentOrigin(source.docNo),
        .mayReplace = source.mayReplace};
    auto saved = saveDocument(fileName, document, host);
    if (saved) {
        DocFlags[source.docNo].changed = false;
    }
    return saved;
}

} // namespace

bool WritePrFile(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const auto written = write(fileName, source, host);
    if (!written) {
        tellOfFailure(written.failure(), fileName, host);
    }
    return !written;
}
