#include "document/DocumentTables.h"

QList<DocFlag> DocFlags;
std::map<int, MachineInfo> MachineInfos;
QList<PrRecord> PrRecords;
QList<PrCondition> PrConditions;

namespace {

std::map<int, DocumentOrigin> origins; // by document number

} // namespace

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

DocumentOrigin &documentOrigin(int docNo)
{
    return origins[docNo];
}

void forgetDocument(int docNo)
{
    origins.erase(docNo);
    MachineInfos.erase(docNo);
}

void resetDocumentTables()
{
    MachineInfos.clear();
    DocFlags.clear();
    PrRecords.clear();
    PrConditions.clear();
    origins.clear();
    forgetWrittenFiles();
}
