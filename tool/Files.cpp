#include "tool/Files.h"

#include "app/services/Messages.h"
#include "check/FileCheck.h"
#include "document/PrFileCodec.h"
#include "runtime/AnsiText.h"
#include "runtime/FileName.h"
#include "runtime/WholeFile.h"
#include "tool/ToolTexts.h"
#include "tool/Wording.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 step = 65536; // of reading what cannot be measured first

/// Returns whether there may be more.
bool addPiece(InputFile &input, QByteArrayView piece)
{
    constexpr qint64 megabyte = 1024 * 1024;
    input.bytes += piece;
    if (input.bytes.size() > largestFile) {
        input.failure = failureText({FailureCode::FileTooLarge, {QString::number(largestFile / megabyte)}});
    }
    return !input.failure && !piece.isEmpty();
}

/// From a pipe or a device.
void readStream(QFile &file, InputFile &input)
{
    while ((!file.atEnd() || file.isSequential()) && addPiece(input, file.read(step))) { }
    if (!input.failure && file.error() != QFile::NoError) {
        input.failure = file.errorString();
    }
}

/// By C's own call: Qt takes the standard input of Windows for a file that it can move in.
void readStandardInput(InputFile &input)
{
    QByteArray buffer(step, Qt::Uninitialized);
    std::size_t length = 0;
    do {
        length = std::fread(buffer.data(), 1, std::size_t(step), stdin);
    } while (addPiece(input, QByteArrayView(buffer.constData(), qsizetype(length))));
    if (!input.failure && std::ferror(stdin) != 0) {
        input.failure = Failure::lastSystemCall().reason();
    }
}

void readPipe(InputFile &input)
{
    QFile file(input.name);
    if (file.open(QFile::ReadOnly | QFile::Unbuffered)) {
        readStream(file, input);
    } else {
        input.failure = file.errorString();
    }
}

/// Into a pipe or a device, which must not be replaced.
std::optional<QString> writeStream(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    if (!file.open(QFile::WriteOnly | QFile::Unbuffered) || file.write(bytes) != bytes.size()) {
        return file.errorString();
    }
    return std::nullopt;
}

} // namespace

InputFile readInput(const QString &name)
{
    InputFile input{name, {}, {}};
    if (name == "-"_L1) {
        readStandardInput(input);
        return input;
    }
    Result<QByteArray> bytes = readWholeFile(name);
    if (bytes) {
        input.bytes = *std::move(bytes);
    } else if (bytes.failure().code == FailureCode::NotAFile) {
        readPipe(input);
    } else {
        input.failure = failureText(bytes.failure());
    }
    return input;
}

const AnsiCodePage &pageOfInput(const QByteArray &bytes, std::optional<int> chosen)
{
    constexpr int japanese = 932;
    constexpr int western = 1252;
    const int preferred = isJapanese() ? japanese : western;
    return chosen ? AnsiCodePage::page(*chosen) : pageOfBytes(bytes, AnsiCodePage::page(preferred));
}

InputDocument decodeInput(const InputFile &input, std::optional<int> codePage)
{
    InputDocument result;
    if (input.failure) {
        result.failure = input.failure;
        return result;
    }
    const AnsiCodePage &page = pageOfInput(input.bytes, codePage);
    if (input.bytes.isEmpty()) {
        result.document.codePage = page.number();
        return result;
    }
    DecodedPrFile decoded = decodePrFile(input.bytes, page);
    if (!decoded.outcome) {
        const Finding finding = readFailureFinding(decoded.outcome.failure());
        result.failure = finding.place.row > 0
            ? toolText(ToolText::InRow, {QString::number(finding.place.row), messageOf(finding)})
            : messageOf(finding);
        return result;
    }
    result.document = std::move(decoded.document);
    result.document.rows.resize(result.document.machine.Paramater);
    return result;
}

OutputBytes encodeOutput(const Document &document)
{
    Document counted = document;
    counted.machine.Paramater = qint16(document.rows.size());
    const EncodedPrFile encoded = encodePrFile(counted);
    if (!encoded.outcome) {
        return {{}, failureText(encoded.outcome.failure())};
    }
    return {encoded.bytes, {}};
}

std::optional<QString> writeOutput(const QString &fileName, const QByteArray &bytes)
{
    if (const QFileInfo present(fileName); present.exists() && !present.isFile() && !present.isDir()) {
        return writeStream(fileName, bytes);
    }
    if (QFile::encodeName(fileName) != fileNameBytes(fileName)) { // a name that only the system's own calls can take
        const Result<> written = writeWholeFile(fileName, bytes);
        return written ? std::nullopt : std::optional(failureText(written.failure()));
    }
    QSaveFile file(fileName);
    if (!file.open(QFile::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        return file.errorString();
    }
    return std::nullopt;
}
