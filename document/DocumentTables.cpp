#include "document/DocumentTables.h"

#include "document/KnownFiles.h"
#include "document/ReadFindings.h"

QList<DocFlag> DocFlags;
std::map<int, MachineInfo> MachineInfos;
QList<PrRecord> PrRecords;
QList<PrCondition> PrConditions;

int documentUpperBound()
{
    return static_cast<int>(std::max<qsizetype>(DocFlags.size() - 1, 0));
}

void growDocumentTables(int docNo)
{
    for (int added = documentUpperBound() + 1; added <= docNo; ++added) {
        MachineInfos.try_emplace(added);
        DocFlags.resize(added + 1);
    }
}

void forgetDocument(int docNo)
{
    MachineInfos.erase(docNo);
    noteNoFile(docNo);
    forgetReadFindings(docNo);
}

void resetDocumentTables()
{
    MachineInfos.clear();
    DocFlags.clear();
    PrRecords.clear();
    PrConditions.clear();
    forgetKnownFiles();
}
