#include "document/AnsiBuffer.h"
#include "document/CollectPrRecords.h"
#include "document/DocumentTables.h"
#include "document/FileFailure.h"
#include "document/FileReplacement.h"
#include "document/InverterSection.h"
#include "document/KnownFiles.h"
#include "document/PrFile.h"
#include "document/ReadBackCheck.h"
#include "document/ReadFindings.h"
#include "document/SaveHost.h"
#include "document/SaveLock.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"

using namespace Qt::StringLiterals;

namespace {

/// The busy pointer, for as long as this object lives.
class HostBusy
{
public:
    explicit HostBusy(FileHost &host) : m_host(host) { m_host.setBusy(true); }
    ~HostBusy() { m_host.setBusy(false); }
    Q_DISABLE_COPY_MOVE(HostBusy)

private:
    FileHost &m_host;
};

std::optional<FileFailure> setParamater(const PrFileSource &source)
{
    const auto count = toInt16(double(source.grid.rowCount()));
    if (const auto *error = std::get_if<RunTimeError>(&count)) {
        return FileFailure::of(*error);
    }
    MachineInfos[source.docNo].Paramater = std::get<qint16>(count);
    return std::nullopt;
}

/// The fields that every row has; each is followed by a comma.
void putFixedFields(const PrRecord &record, AnsiBuffer &out)
{
    static constexpr QString PrRecord::*texts[] = {&PrRecord::number, &PrRecord::helpId, &PrRecord::name,
        &PrRecord::unit, &PrRecord::min1, &PrRecord::min2, &PrRecord::min3, &PrRecord::factorySetting,
        &PrRecord::functionCode, &PrRecord::rangeCheck};
    out.putInteger(record.conditionCount);
    out.put(',');
    for (const auto text : texts) {
        out.putText(record.*text);
        out.put(',');
    }
    out.putInteger(record.rangeCount);
}

void putRange(const SettingRange &range, AnsiBuffer &out)
{
    out.put(',');
    out.putSingle(range.lower);
    out.put(',');
    out.putSingle(range.upper);
}

void putCondition(const PrCondition &condition, AnsiBuffer &out)
{
    out.put(',');
    out.putText(condition.subject);
    out.put(',');
    out.putInteger(condition.kind);
    out.put(',');
    out.putText(condition.value1);
    if (!condition.value2.isEmpty()) {
        out.put(',');
        out.putText(condition.value2);
    }
}

/// A row with neither ranges nor conditions ends in a comma, without a line end: readers go by commas.
void putRecord(const PrRecord &record, AnsiBuffer &out)
{
    putFixedFields(record, out);
    for (const SettingRange &range : record.ranges) {
        putRange(range, out);
    }
    for (const PrCondition &condition : record.conditions) {
        putCondition(condition, out);
    }
    const bool endsLine = !record.ranges.isEmpty() || !record.conditions.isEmpty();
    out.put(endsLine ? QByteArrayView("\r\n") : QByteArrayView(","));
}

std::optional<FileFailure> putRecords(AnsiBuffer &out, SaveHost &host)
{
    constexpr qsizetype usualRow = 80;
    out.reserve(PrRecords.size() * usualRow);
    for (qsizetype i = 0; i < PrRecords.size(); ++i) {
        putRecord(PrRecords.at(i), out);
        if (const auto missing = out.missingCharacter()) {
            const int row = int(i + 1);
            return FileFailure{OwnText::RowCharacterMissing, QStringList{QString::number(row)} + *missing,
                findMissingCharacter(PrRecords.at(i), row, ansiCodePage())};
        }
        host.runPendingEvents();
    }
    return std::nullopt;
}

/// What the file is to hold.
struct Output
{
    QByteArrayView bytes;
    Extent extent;
};

/// Replaces the file unless the user wants to keep what another program put there. That is looked for, and replaced,
/// under a lock; while the user thinks, others may save.
std::optional<FileFailure> replaceUnlessChanged(
    const QString &fileName, const Output &output, const PrFileSource &source, SaveHost &host)
{
    ForeignChangeGuard guard(source.docNo, fileName);
    if (source.mayReplace) {
        guard.agreeToPresent();
    }
    while (true) {
        SaveLock lock(fileName);
        if (lock.isTaken()) {
            return FileFailure{OwnText::FileBeingSaved};
        }
        const auto change = guard.find();
        if (!change) {
            auto failure = replaceFile(fileName, output.bytes, output.extent, host);
            failure ? guard.noteLeftOver() : guard.noteWritten(output.bytes);
            return failure;
        }
        lock.release();
        if (!host.askYesNo({*change}, fileName)) {
            return FileFailure::silent();
        }
        guard.agree();
    }
}

/// Whether there are more capacities than rated currents: what stands before the gap is still written.
bool lacksCurrents(const MachineInfo &info)
{
    return info.Capacity.size() > info.ICapacity.size();
}

/// Whether all comes back from the file, or the user wants it written like this.
bool mayBeWritten(const QString &fileName, const MachineInfo &info, SaveHost &host)
{
    const auto findings = findReadBackFaults(info, PrRecords, ansiCodePage());
    if (findings.isEmpty() || host.askToWrite(findings, fileName)) {
        return true;
    }
    host.showPlace(findings.first().place);
    return false;
}

std::optional<FileFailure> writeDocument(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const MachineInfo &info = MachineInfos[source.docNo];
    AnsiBuffer out(ansiCodePage());
    out.put("[Inverter]\r\n");
    auto failure = WriteInverterSection(info, out);
    if (failure && (out.missingCharacter() || !lacksCurrents(info))) {
        return failure;
    }
    if (!failure) {
        out.put("[Paramater]\r\n");
        if (auto rowFailure = putRecords(out, host)) {
            return rowFailure;
        }
    }
    if (!mayBeWritten(fileName, info, host)) {
        return FileFailure::silent();
    }
    const Extent extent = failure ? Extent::Part : Extent::Whole;
    const auto fileFailure = replaceUnlessChanged(fileName, {out.bytes(), extent}, source, host);
    return fileFailure ? fileFailure : failure;
}

std::optional<FileFailure> writeFile(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const HostBusy busy(host);
    if (fileName.isEmpty()) {
        return FileFailure::silent();
    }
    if (source.docNo < 1 || source.docNo > documentUpperBound()) {
        return FileFailure::of(RunTimeError::SubscriptOutOfRange);
    }
    if (const auto error = CollectPrRecords(source.grid)) {
        return FileFailure::of(*error);
    }
    if (auto failure = setParamater(source)) {
        return failure;
    }
    auto failure = writeDocument(fileName, source, host);
    if (!failure) {
        DocFlags[source.docNo].changed = false;
        forgetReadFindings(source.docNo);
    }
    return failure;
}

} // namespace

bool WritePrFile(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const auto failure = writeFile(fileName, source, host);
    if (failure && failure->text) {
        host.showFailure(*failure, fileName);
    }
    if (failure && failure->place) {
        host.showPlace(*failure->place);
    }
    return failure.has_value();
}
