// Any bytes as a parameter file: opened, shown as cell texts, saved, and opened again.

#include "check/FileCheck.h"
#include "document/DocumentTables.h"
#include "document/FieldText.h"
#include "document/PrCondText.h"
#include "document/PrFile.h"
#include "document/RecordTexts.h"
#include "fuzz/Law.h"
#include "runtime/AnsiText.h"
#include "runtime/Spaces.h"
#include "tests/document/FakeGrid.h"
#include "tests/document/FakeHost.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 docNo = 1;
// A section may claim 32,767 rows for a file of fifty bytes; the fuzzer is to spend its time on other things.
constexpr qint16 maxRows = 200;

QString folderTemplate()
{
    return (QFileInfo(u"/dev/shm"_s).isWritable() ? u"/dev/shm"_s : u"/tmp"_s) + u"/tabrix-fuzz-XXXXXX"_s;
}

QString path(const QString &name)
{
    static const QTemporaryDir folder(folderTemplate());
    return folder.filePath(name);
}

void put(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    require(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size(), "disk");
}

QByteArray takeContent(const QString &fileName)
{
    QFile file(fileName);
    require(file.open(QIODevice::ReadOnly), "a save that succeeded left a file");
    const QByteArray bytes = file.readAll();
    file.remove();
    return bytes;
}

bool hasRows(const QByteArray &bytes)
{
    return std::ranges::any_of(bytes.split('\n'), [](QByteArray line) {
        line.chop(line.endsWith('\r') ? 1 : 0);
        return line == "[Paramater]";
    });
}

bool open(const QByteArray &bytes)
{
    FakeHost host;
    put(path(u"opened.inv"_s), bytes);
    MachineInfos[docNo] = {};
    const bool done = !ReadPrFile(path(u"opened.inv"_s), docNo, host);
    require(host.messages.size() == (done || !hasRows(bytes) ? 0 : 1) || (!done && host.messages.size() == 1),
        "a failed open tells the user once, one without rows may be silent");
    require(!done || hasRows(bytes), "no rows are read without their section");
    return done;
}

/// A window opens the rows as they are shown of the records.
void openAsGrid()
{
    FakeHost host;
    std::vector<CellRow> rows;
    require(!ReadPrFile(path(u"opened.inv"_s), docNo, rows, host), "what can be read can be opened");
    const bool areShown = std::ranges::equal(rows, PrRecords,
        [](const CellRow &row, const PrRecord &record) { return row == CellRow(RecordTexts(record).cells()); });
    require(areShown, "a window opens the rows that were read");
}

/// Saves what was opened, as the editor shows it. Empty when it cannot be saved, which the user is told.
QByteArray save()
{
    FakeHost host;
    host.answersYes = true;
    const int rows = std::max<int>(MachineInfos[docNo].Paramater, 0);
    const FakeGrid grid(PrRecords, rows);
    if (WritePrFile(path(u"saved.inv"_s), {docNo, grid}, host)) {
        require(host.messages.size() == 1, "a failed save tells the user once");
        QFile::remove(path(u"saved.inv"_s));
        return {};
    }
    require(host.messages.isEmpty(), "a save that succeeded says nothing");
    return takeContent(path(u"saved.inv"_s));
}

const AnsiCodePage &documentPage()
{
    return AnsiCodePage::page(documentOrigin(docNo).codePageNumber());
}

bool isEncodable(const QString &text)
{
    QByteArray bytes;
    return !documentPage().encode(text, bytes) && documentPage().decode(bytes) == text;
}

/// Whether a field of a row can hold the text: it has no separator, and no space or quote where they would be dropped.
bool isFieldText(const QString &text)
{
    return !text.contains(u',') && !text.contains(u'\n') && !text.startsWith(u'"') && trimSpaces(text) == text
        && isEncodable(text);
}

/// Whether a key line can hold the value.
bool isKeyValue(const QString &text)
{
    const auto isBlank = [](QChar character) { return u" \t\v\f\x1A"_s.contains(character); };
    const bool framed = !text.isEmpty() && (isBlank(text.front()) || isBlank(text.back()));
    const bool quoted =
        text.size() > 1 && text.front() == text.back() && (text.front() == u'"' || text.front() == u'\'');
    return !framed && !quoted && text != u"GetPrivateProfieReadError" && isEncodable(text);
}

bool isEntry(const QString &text)
{
    return !text.isEmpty() && isKeyValue(text);
}

bool comesBack(const MachineInfo &info)
{
    return isKeyValue(info.Name) && isKeyValue(info.TypeCode) && isKeyValue(info.VCapacity) && isKeyValue(info.Code)
        && isKeyValue(info.SoftWareVersion) && std::ranges::all_of(info.Capacity, isEntry)
        && std::ranges::all_of(info.ICapacity, isEntry) && std::ranges::all_of(info.Option, isEntry);
}

bool comesBack(const PrCondition &condition)
{
    return isFieldText(condition.subject) && isFieldText(condition.value1) && isFieldText(condition.value2);
}

/// Whether a row is one that its cells and its fields can say: range values in the order of their texts, bounds of at
/// most seven digits and no negative exponent, texts without separators.
bool comesBack(const PrRecord &record)
{
    const QString texts[] = {record.number, record.helpId, record.name, record.unit, record.factorySetting};
    return std::ranges::all_of(texts, isFieldText) && rangesFromText(rangesToText(record.ranges)) == record.ranges
        && conditionsFromText(conditionsToText(record.conditions)) == record.conditions
        && std::ranges::all_of(record.conditions, [](const PrCondition &condition) { return comesBack(condition); });
}

bool allComesBack()
{
    return comesBack(MachineInfos[docNo])
        && std::ranges::all_of(PrRecords, [](const PrRecord &record) { return comesBack(record); });
}

void roundTrip(const QByteArray &bytes)
{
    if (!open(bytes) || MachineInfos[docNo].Paramater > maxRows) {
        return;
    }
    const QString name = u"opened.inv"_s;
    require(checkFile(bytes, documentPage(), name) == checkDecodedFile(bytes, documentPage(), name),
        "a check finds the same by rows as by the whole file");
    openAsGrid();
    const QByteArray saved = save();
    if (saved.isEmpty() || !allComesBack() || &pageOfBytes(saved, ansiCodePage()) != &documentPage()) {
        return;
    }
    const MachineInfo info = MachineInfos[docNo];
    const QList<PrRecord> records = PrRecords;
    require(open(saved), "what was saved can be opened");
    require(MachineInfos[docNo] == info, "the machine information comes back");
    require(PrRecords.first(records.size()) == records, "the rows come back");
    require(save() == saved, "saving what was not changed changes no byte");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    qputenv("XDG_DATA_HOME", path(u"data"_s).toLocal8Bit());
    setAnsiCodePageNumber(size % 2 != 0 ? 932 : 1252);
    resetDocumentTables();
    growDocumentTables(docNo);
    roundTrip(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
