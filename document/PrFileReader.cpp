#include "document/DocumentTables.h"
#include "document/FileHost.h"
#include "document/PrFile.h"

using namespace Qt::StringLiterals;

namespace {

Result<> readToTables(const QString &fileName, qint16 docNo, FileHost &host)
{
    if (docNo < 1 || docNo > documentUpperBound()) {
        return FailureCode::SubscriptOutOfRange;
    }
    const ReadTarget target{.machine = MachineInfos[docNo], .rows = PrRecords, .origin = documentOrigin(docNo)};
    return readDocument(fileName, target, host);
}

} // namespace

bool ReadPrFile(const QString &fileName, qint16 docNo, FileHost &host)
{
    if (fileName.isEmpty()) {
        host.showMessage(u"No File"_s);
        return true;
    }
    const auto read = readToTables(fileName, docNo, host);
    if (!read && !read.failure().isSilent()) {
        host.showFailure(read.failure(), fileName);
    }
    return !read;
}
