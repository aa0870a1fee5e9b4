#include "document/DocumentTables.h"
#include "document/FileHost.h"
#include "document/PrFile.h"

using namespace Qt::StringLiterals;

namespace {

template <typename Rows>
Result<> readToTables(const QString &fileName, qint16 docNo, Rows &rows, FileHost &host)
{
    if (docNo < 1 || docNo > documentUpperBound()) {
        return FailureCode::SubscriptOutOfRange;
    }
    return readDocument(fileName, {.machine = MachineInfos[docNo], .origin = documentOrigin(docNo)}, rows, host);
}

template <typename Rows>
bool read(const QString &fileName, qint16 docNo, Rows &rows, FileHost &host)
{
    if (fileName.isEmpty()) {
        host.showMessage(u"No File"_s);
        return true;
    }
    const auto read = readToTables(fileName, docNo, rows, host);
    if (!read && !read.failure().isSilent()) {
        host.showFailure(read.failure(), fileName);
    }
    return !read;
}

} // namespace

bool ReadPrFile(const QString &fileName, qint16 docNo, FileHost &host)
{
    return read(fileName, docNo, PrRecords, host);
}

bool ReadPrFile(const QString &fileName, qint16 docNo, std::vector<CellRow> &rows, FileHost &host)
{
    return read(fileName, docNo, rows, host);
}
