#include "document/AnsiBuffer.h"
#include "document/CollectPrRecords.h"
#include "document/DocumentTables.h"
#include "document/FileBackup.h"
#include "document/FileFailure.h"
#include "document/InverterSection.h"
#include "document/PrFile.h"
#include "runtime/AnsiText.h"
#include "runtime/NumberText.h"
#include "runtime/WholeFile.h"

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
    const auto count = toInt16(QStringView(source.parameterCount));
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

std::optional<FileFailure> putRecords(AnsiBuffer &out, FileHost &host)
{
    constexpr qsizetype usualRow = 80;
    out.reserve(PrRecords.size() * usualRow);
    for (qsizetype i = 0; i < PrRecords.size(); ++i) {
        putRecord(PrRecords.at(i), out);
        if (const auto missing = out.missingCharacter()) {
            return FileFailure{OwnText::RowCharacterMissing, QStringList{QString::number(i + 1)} + *missing};
        }
        host.runPendingEvents();
    }
    return std::nullopt;
}

/// Replaces the file, with its earlier content kept in the backups.
std::optional<FileFailure> replaceFile(const QString &fileName, QByteArrayView bytes)
{
    if (auto failure = backUpFile(fileName)) {
        return failure;
    }
    if (auto reason = writeWholeFile(fileName, bytes)) {
        leaveOutOfBackups(fileName);
        return FileFailure::ofSystem(*reason);
    }
    return std::nullopt;
}

/// Whether there are more capacities than rated currents: what stands before the gap is still written.
bool lacksCurrents(const MachineInfo &info)
{
    return info.Capacity.size() > info.ICapacity.size();
}

std::optional<FileFailure> writeDocument(const QString &fileName, qint16 docNo, FileHost &host)
{
    const MachineInfo &info = MachineInfos.at(docNo);
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
    const auto fileFailure = replaceFile(fileName, out.bytes());
    return fileFailure ? fileFailure : failure;
}

std::optional<FileFailure> writeFile(const QString &fileName, const PrFileSource &source, FileHost &host)
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
    auto failure = writeDocument(fileName, source.docNo, host);
    if (!failure) {
        DocFlags[source.docNo].changed = false;
    }
    return failure;
}

} // namespace

bool WritePrFile(const QString &fileName, const PrFileSource &source, FileHost &host)
{
    const auto failure = writeFile(fileName, source, host);
    if (failure && failure->text) {
        host.showFailure(*failure, fileName);
    }
    return failure.has_value();
}
