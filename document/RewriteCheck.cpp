#include "document/RewriteCheck.h"

#include "document/FieldReader.h"
#include "document/FieldText.h"
#include "document/PrFileCodec.h"
#include "document/RecordReader.h"
#include "document/RecordTexts.h"
#include "document/RowCollector.h"
#include "runtime/AnsiText.h"

#include <algorithm>

namespace {

/// A record as the grid shows it.
class ShownRecord : public PrGrid
{
public:
    explicit ShownRecord(const PrRecord &record) : m_texts(record) { }

    int rowCount() const override { return 1; }
    QStringView cellText(int column, int) const override { return m_texts.cells()[std::size_t(column - 1)]; }

private:
    RecordTexts m_texts;
};

/// The texts that a row is written as, in the order of the file.
QStringList writtenTexts(const RowFields &fields)
{
    QStringList texts{QString::number(fields.conditionCount)};
    for (const QStringView text : fields.texts) {
        texts << text.toString();
    }
    texts << QString::number(fields.rangeCount);
    for (const SettingRange &range : fields.ranges) {
        texts << SingleToText(range.lower) << SingleToText(range.upper);
    }
    for (const PrCondition &condition : fields.conditions) {
        texts << condition.subject << QString::number(condition.kind) << condition.value1;
        if (!condition.value2.isEmpty()) {
            texts << condition.value2;
        }
    }
    return texts;
}

/// Compares one row of the file, field by field, with what it would be written as.
void compare(const QList<FileField> &found, const QStringList &written, int row, const AnsiCodePage &page,
    QList<RewriteFinding> &findings)
{
    for (qsizetype i = 0; i < std::max(found.size(), written.size()); ++i) {
        const FileField field = found.value(i, {found.last().offset, {}});
        RewriteFinding finding{.position = {.row = row, .field = int(i + 1), .offset = field.offset},
            .inFile = page.decode(field.bytes),
            .written = written.value(i)};
        if (finding.inFile != finding.written) {
            findings << finding;
        }
    }
}

} // namespace

QList<RewriteFinding> findRewrites(const QByteArray &bytes, const AnsiCodePage &page)
{
    QList<RewriteFinding> findings;
    MachineInfo machine;
    FieldReader in(bytes, page);
    if (!PrFileDecoder(bytes, page).decodeMachine(machine) || !in.passLine(rowsLine)) {
        return findings;
    }
    for (int row = 1; row <= machine.Paramater && !in.atEnd(); ++row) {
        QList<FileField> found;
        PrRecord record;
        in.setTrace(&found);
        readRecord(in, record);
        const ShownRecord shown(record);
        RowCollector collector(shown);
        if (in.hasFailed() || !collector.collect(1)) {
            break;
        }
        compare(found, writtenTexts(collector.fields()), row, page, findings);
    }
    return findings;
}
