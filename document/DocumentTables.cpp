#include "document/DocumentTables.h"

#include "document/ReadFindings.h"
#include "runtime/AnsiText.h"
#include "storage/KnownFiles.h"

QList<DocFlag> DocFlags;
std::map<int, MachineInfo> MachineInfos;
QList<PrRecord> PrRecords;
QList<PrCondition> PrConditions;

namespace {

std::map<int, int> codePages; // by document number

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

int documentCodePage(int docNo)
{
    const auto known = codePages.find(docNo);
    return known == codePages.end() ? ansiCodePageNumber() : known->second;
}

void setDocumentCodePage(int docNo, int number)
{
    codePages[docNo] = number;
}

void forgetDocument(int docNo)
{
    codePages.erase(docNo);
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
    codePages.clear();
    forgetKnownFiles();
}
