#include "document/DocumentTables.h"

#include "document/KnownFiles.h"

QList<MachineInfo> MachineInfos;
QList<DocFlag> DocFlags;
QList<PrRecord> PrRecords;
QList<PrCondition> PrConditions;

int documentUpperBound()
{
    return static_cast<int>(std::max<qsizetype>(MachineInfos.size() - 1, 0));
}

void growDocumentTables(int docNo)
{
    if (docNo > documentUpperBound()) {
        MachineInfos.resize(docNo + 1);
        DocFlags.resize(docNo + 1);
    }
}

void resetDocumentTables()
{
    MachineInfos.clear();
    DocFlags.clear();
    PrRecords.clear();
    PrConditions.clear();
    forgetKnownFiles();
}
