#include "document/DocumentTables.h"


QList<DocFlag> DocFlags;
std::map<int, MachineInfo> MachineInfos;
QList<PrRecord> PrRecords;
QList<PrCondition> PrConditions;

namespace {

std::map<int, DocumentOrigin> origins; // by document number

std::function<void()> &changeObserver()
{
    static std::function<void()> observer;
    return observer;
}

} // namespace

ChangedFlag &ChangedFlag::operator=(const ChangedFlag &other)
{
    const bool differs = m_changed != other.m_changed;
    m_changed = other.m_changed;
    if (differs && changeObserver()) {
        changeObserver()();
    }
    return *this;
}

void ChangedFlag::setObserver(std::function<void()> observer)
{
    changeObserver() = std::move(observer);
}

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
