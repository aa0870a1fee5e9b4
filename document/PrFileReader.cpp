#include "document/DocumentTables.h"
#include "document/FieldReader.h"
#include "document/FileFailure.h"
#include "document/FileHost.h"
#include "document/InverterSection.h"
#include "document/KnownFiles.h"
#include "document/PrFile.h"
#include "document/ReadFindings.h"
#include "runtime/AnsiText.h"
#include "runtime/PrivateProfile.h"
#include "runtime/WholeFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// A count of list entries that follow: a negative one cannot size a list.
qsizetype listSize(FieldReader &in, qint16 count)
{
    if (count < 0) {
        in.fail(RunTimeError::SubscriptOutOfRange);
    }
    return in.error() ? 0 : count;
}

void readRanges(FieldReader &in, PrRecord &record)
{
    const qsizetype count = listSize(in, record.rangeCount);
    // What a row claims to hold costs nothing until it is there: each range has two separators at least.
    record.ranges.reserve(std::min(count, in.remaining() / 2 + 1));
    for (qsizetype i = 0; i < count && !in.error(); ++i) {
        const float lower = in.single();
        const float upper = in.single();
        record.ranges.append(SettingRange{upper, lower});
    }
}

PrCondition readCondition(FieldReader &in)
{
    PrCondition condition;
    condition.subject = in.text();
    condition.kind = in.byte();
    condition.value1 = in.text();
    if ((condition.kind & PrCondition::HasRange) != 0) {
        condition.value2 = in.text();
    }
    return condition;
}

void readConditions(FieldReader &in, PrRecord &record)
{
    const qsizetype count = listSize(in, record.conditionCount);
    record.conditions.reserve(std::min(count, in.remaining() / 3 + 1));
    for (qsizetype i = 0; i < count && !in.error(); ++i) {
        record.conditions.append(readCondition(in));
    }
}

void readRecord(FieldReader &in, PrRecord &record)
{
    static constexpr QString PrRecord::*texts[] = {&PrRecord::number, &PrRecord::helpId, &PrRecord::name,
        &PrRecord::unit, &PrRecord::min1, &PrRecord::min2, &PrRecord::min3, &PrRecord::factorySetting,
        &PrRecord::functionCode, &PrRecord::rangeCheck};
    record.conditionCount = in.int16();
    for (const auto text : texts) {
        record.*text = in.text();
    }
    record.rangeCount = in.int16();
    readRanges(in, record);
    readConditions(in, record);
}

/// Reads rows into PrRecords until the file ends; there is room for one more than the file says.
std::optional<FileFailure> readRecords(FieldReader &in, int paramater, ReadFindings &findings, FileHost &host)
{
    constexpr qsizetype shortestRow = 13;
    const qsizetype room = qsizetype(paramater) + 1;
    PrRecords.clear();
    if (paramater < 0) {
        return FileFailure::of(RunTimeError::SubscriptOutOfRange);
    }
    PrRecords.reserve(std::min(room, in.remaining() / shortestRow + 1));
    while (!in.atEnd()) {
        if (PrRecords.size() == room) {
            return FileFailure::of(RunTimeError::SubscriptOutOfRange);
        }
        const qsizetype rowAt = in.position();
        readRecord(in, PrRecords.emplaceBack());
        ++findings.rowsFound;
        if (in.atEnd() && !in.fieldHasEnd()) {
            findings.cutRow = findings.rowsFound;
            findings.cutRowAt = rowAt;
        }
        if (const auto error = in.error()) {
            return FileFailure::of(*error);
        }
        host.runPendingEvents();
    }
    PrRecords.resize(room);
    return std::nullopt;
}

std::optional<FileFailure> readRows(FieldReader &in, qint16 docNo, FileHost &host)
{
    ReadFindings findings{.rowsAnnounced = MachineInfos.at(docNo).Paramater};
    auto failure = readRecords(in, findings.rowsAnnounced, findings, host);
    findings.bytesUnread = in.remaining();
    setReadFindings(docNo, findings);
    return failure;
}

std::optional<FileFailure> readFile(const QString &fileName, qint16 docNo, FileHost &host)
{
    if (docNo < 1 || docNo > documentUpperBound()) {
        return FileFailure::of(RunTimeError::SubscriptOutOfRange);
    }
    forgetReadFindings(docNo);
    QByteArray bytes;
    const FileStamp stamp = FileStamp::of(fileName);
    if (const auto error = readWholeFile(fileName, bytes)) {
        return FileFailure::of(*error);
    }
    noteReadFile(docNo, fileName, stamp, bytes);
    if (auto failure = ReadInverterSection(PrivateProfile(bytes), MachineInfos[docNo])) {
        return failure;
    }
    FieldReader in(bytes, ansiCodePage());
    if (!in.passLine("[Paramater]")) {
        return FileFailure::silent();
    }
    return readRows(in, docNo, host);
}

} // namespace

bool ReadPrFile(const QString &fileName, qint16 docNo, FileHost &host)
{
    if (fileName.isEmpty()) {
        host.showMessage(u"No File"_s);
        return true;
    }
    const auto failure = readFile(fileName, docNo, host);
    if (failure && failure->text) {
        host.showFailure(*failure, fileName);
    }
    return failure.has_value();
}
