#include "tool/RawDiff.h"

#include "document/FieldReader.h"
#include "document/ParameterColumns.h"
#include "document/PlainRow.h"
#include "document/PrFileCodec.h"
#include "document/RecordReader.h"
#include "runtime/AnsiText.h"
#include "runtime/Digits.h"
#include "tool/ListDiff.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr int numberField = parameterColumns[ParameterColumn::Number - 1].fileField;

/// A file's parameters as entries. They are known by their numbers and occurrences, which it counts from 1.
class RawEntries : public EntryList
{
public:
    explicit RawEntries(const RawFile &file);

    EntryKey key(int index) const override;
    QStringList values(int index) const override;
    int number(int index) const { return m_file.numbers[std::size_t(index)]; }
    int occurrence(int index) const { return m_occurrences[std::size_t(index)]; }
    int size() const { return int(m_occurrences.size()); }

private:
    const RawFile &m_file;
    std::vector<int> m_occurrences;
};

RawEntries::RawEntries(const RawFile &file) : m_file(file)
{
    std::vector<int> counts;
    m_occurrences.reserve(file.numbers.size());
    for (const int number : file.numbers) {
        counts.resize(std::max(counts.size(), std::size_t(number) + 1));
        m_occurrences.push_back(++counts[std::size_t(number)]);
    }
}

EntryKey RawEntries::key(int index) const
{
    return {QString::number(number(index)), occurrence(index)};
}

QStringList RawEntries::values(int index) const
{
    const AnsiCodePage &page = AnsiCodePage::page(m_file.document.codePage);
    FieldReader in(m_file.rows[std::size_t(index)], page, FieldReader::Storage::Separate);
    PrRecord record;
    readRecord(in, record);
    return parameterValues(record);
}

/// Gives numbers to keys: the parameter's own to the first of that number, which nearly all are.
class RawKeys
{
public:
    std::vector<int> of(const RawEntries &entries);

private:
    QHash<std::pair<int, int>, int> m_further; ///< by number and occurrence
};

std::vector<int> RawKeys::of(const RawEntries &entries)
{
    constexpr int firstFurther = 100'000; // above every small number
    std::vector<int> keys;
    keys.reserve(std::size_t(entries.size()));
    for (int i = 0; i < entries.size(); ++i) {
        if (entries.occurrence(i) == 1) {
            keys.push_back(entries.number(i));
            continue;
        }
        int &key = m_further[{entries.number(i), entries.occurrence(i)}];
        key = key == 0 ? firstFurther + int(m_further.size()) : key;
        keys.push_back(key);
    }
    return keys;
}

QList<EntryChange> diffParameters(const RawFile &before, const RawFile &after, const DiffOptions &options)
{
    const RawEntries entriesBefore(before);
    const RawEntries entriesAfter(after);
    RawKeys keys;
    const auto isSame = [&](int old, int now) { return before.rows[std::size_t(old)] == after.rows[std::size_t(now)]; };
    const ListPair lists{entriesBefore, entriesAfter, keys.of(entriesBefore), keys.of(entriesAfter), isSame};
    return diffLists(sheetPart(SheetPart::Parameters), lists, options);
}

/// The parameter's number in the next row; -1 if it is no small number, or there is no such row.
int nextNumber(PlainRowReader &reader)
{
    if (reader.next()) {
        return smallNumber(reader.row().text(numberField));
    }
    PrRecord record;
    return reader.decodeNext(record) ? smallNumber(record.number) : -1;
}

} // namespace

std::optional<RawFile> rawFile(const InputFile &input, std::optional<int> codePage)
{
    const QByteArrayView rows = rowsOfFile(input.bytes);
    if (input.failure || rows.isNull()) {
        return std::nullopt;
    }
    const AnsiCodePage &page = pageOfInput(input.bytes, codePage);
    RawFile file{.bytes = input.bytes,
        .document = {.machine = {}, .rows = {}, .codePage = page.number()},
        .rows = {},
        .numbers = {}};
    MachineInfo &machine = file.document.machine;
    if (!PrFileDecoder(input.bytes, page).decodeMachine(machine)) {
        return std::nullopt;
    }
    PlainRowReader reader(rows, page);
    while (!reader.atEnd()) {
        const int number = nextNumber(reader);
        if (number < 0) {
            return std::nullopt;
        }
        file.rows.push_back(reader.bytes());
        file.numbers.push_back(number);
    }
    return qsizetype(file.rows.size()) == machine.Paramater ? std::optional(std::move(file)) : std::nullopt;
}

SheetDiff diffRawFiles(const RawFile &before, const RawFile &after, const DiffOptions &options)
{
    SheetDiff diff = diffDocuments(before.document, after.document, options);
    diff.parts.at(std::size_t(SheetPart::Parameters)) = diffParameters(before, after, options);
    return diff;
}
