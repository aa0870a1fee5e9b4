#include "document/CollectPrRecords.h"
#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "document/PrFileCodec.h"
#include "document/ReadBackCheck.h"
#include "document/SaveHost.h"
#include "runtime/AnsiText.h"
#include "runtime/FileFailure.h"
#include "runtime/NumberText.h"
#include "storage/FileReplacement.h"
#include "storage/KnownFiles.h"
#include "storage/SaveLock.h"

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

/// What has to be asked before the file is replaced; nothing is touched then.
struct Question
{
    std::optional<OwnText> change; ///< about what another program put there
    std::optional<FileFailure> loss; ///< about what no version can be kept of
};

/// Looks at the file and replaces it under one lock, unless there is a question.
std::optional<FileFailure> replaceLocked(
    const QString &fileName, const NewContent &content, ForeignChangeGuard &guard, Question &question)
{
    const SaveLock lock(fileName);
    if (lock.isTaken()) {
        return FileFailure{OwnText::FileBeingSaved};
    }
    question.change = guard.find();
    if (question.change) {
        return std::nullopt;
    }
    auto failure = replaceFile(fileName, content, question.loss);
    if (!question.loss) {
        failure ? guard.noteLeftOver() : guard.noteWritten(content.bytes);
    }
    return failure;
}

/// Replaces the file as the user agrees to it. While he thinks, others may save: each answer is followed by a new look.
std::optional<FileFailure> replaceAsAgreed(
    const QString &fileName, NewContent content, const PrFileSource &source, SaveHost &host)
{
    ForeignChangeGuard guard(source.docNo, fileName);
    if (source.mayReplace) {
        guard.agreeToPresent();
    }
    while (true) {
        Question question;
        auto failure = replaceLocked(fileName, content, guard, question);
        if (!question.change && !question.loss) {
            return failure;
        }
        if (!host.askYesNo(question.change ? FileFailure{*question.change} : *question.loss, fileName)) {
            return FileFailure::silent();
        }
        if (question.change) {
            guard.agree();
        } else {
            content.mayLoseEarlier = true;
        }
    }
}

/// Whether all comes back from the file, or the user wants it written like this.
bool mayBeWritten(const QString &fileName, const Document &document, SaveHost &host)
{
    const auto findings = findReadBackFaults(document.machine, document.rows, AnsiCodePage::page(document.codePage));
    if (findings.isEmpty() || host.askToWrite(findings, fileName)) {
        return true;
    }
    host.showPlace(findings.first().place);
    return false;
}

std::optional<FileFailure> writeDocument(const QString &fileName, const PrFileSource &source, SaveHost &host)
{
    const Document document{MachineInfos[source.docNo], PrRecords, documentCodePage(source.docNo)};
    const EncodedPrFile encoded = encodePrFile(document, [&host] { host.runPendingEvents(); });
    if (!encoded.isWritable()) {
        return encoded.failure;
    }
    if (!mayBeWritten(fileName, document, host)) {
        return FileFailure::silent();
    }
    const Extent extent = encoded.isPart ? Extent::Part : Extent::Whole;
    const auto failure = replaceAsAgreed(fileName, {.bytes = encoded.bytes, .extent = extent}, source, host);
    return failure ? failure : encoded.failure;
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
