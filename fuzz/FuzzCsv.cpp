// Any bytes as the CSV of a document: read, written, and read again.

#include "fuzz/Law.h"
#include "runtime/AnsiText.h"
#include "tool/Csv.h"
#include "tool/DocumentCsv.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

bool namesPlace(const QString &failure)
{
    static const QRegularExpression place(u"^Line [1-9][0-9]*, column [1-9][0-9]*: ."_s);
    return place.match(failure).hasMatch();
}

void records(const QByteArray &bytes)
{
    const CsvInput input = readCsv(bytes);
    if (input.failure) {
        require(namesPlace(*input.failure), "text that is not CSV is refused with line and column");
        return;
    }
    QList<QStringList> fields;
    for (const CsvRecord &record : input.records) {
        require(!record.fields.isEmpty() && record.fields.size() == record.places.size(), "each field has its place");
        fields << record.fields;
    }
    const CsvInput again = readCsv(csvOf(fields));
    require(!again.failure && again.records.size() == fields.size(), "what was written can be read");
    for (qsizetype i = 0; i < fields.size(); ++i) {
        require(again.records[i].fields == fields[i], "the fields come back");
    }
}

void document(const QByteArray &bytes)
{
    const ReadDocument read = documentFromCsv(bytes);
    if (read.failure) {
        require(namesPlace(*read.failure), "what is not a document is refused with line and column");
        return;
    }
    const QByteArray written = documentAsCsv(read.document);
    const ReadDocument again = documentFromCsv(written);
    require(!again.failure, "a document that was written can be read");
    require(again.document.machine == read.document.machine, "the machine information comes back");
    require(again.document.codePage == read.document.codePage, "the code page comes back");
    require(documentAsCsv(again.document) == written, "the rows come back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    records(bytes);
    document(bytes);
    return 0;
}
