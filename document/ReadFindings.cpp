#include "document/ReadFindings.h"

#include <QHash>

namespace {

QHash<int, ReadFindings> &allFindings()
{
    static QHash<int, ReadFindings> findings;
    return findings;
}

} // namespace

std::optional<ReadFindings> readFindings(int docNo)
{
    const auto found = allFindings().constFind(docNo);
    return found == allFindings().cend() ? std::nullopt : std::optional(*found);
}

void setReadFindings(int docNo, const ReadFindings &findings)
{
    allFindings().insert(docNo, findings);
}

void forgetReadFindings(int docNo)
{
    allFindings().remove(docNo);
}
