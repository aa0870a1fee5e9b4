#include "check/SavedForm.h"

#include "document/ParameterColumns.h"
#include "document/RecordTexts.h"
#include "document/RowCollector.h"

#include <algorithm>

namespace {

/// A grid of the one row that it shows at present.
class OneRow : public PrGrid
{
public:
    void show(const PrRecord &record) { m_texts.emplace(record); }

    int rowCount() const override { return 1; }
    QStringView cellText(int column, int) const override { return m_texts->cells()[std::size_t(column - 1)]; }

private:
    std::optional<RecordTexts> m_texts;
};

} // namespace

void takeFields(const RowFields &fields, PrRecord &record)
{
    for (std::size_t i = 0; i < fileTexts.size(); ++i) {
        QString &text = record.*fileTexts[i];
        if (text != fields.texts[i]) {
            text = fields.texts[i].toString();
        }
    }
    record.rangeCount = fields.rangeCount;
    if (!std::ranges::equal(record.ranges, fields.ranges)) {
        record.ranges = QList<SettingRange>(fields.ranges.begin(), fields.ranges.end());
    }
    record.conditionCount = fields.conditionCount;
    if (!std::ranges::equal(record.conditions, fields.conditions)) {
        record.conditions = QList<PrCondition>(fields.conditions.begin(), fields.conditions.end());
    }
}

std::optional<Document> savedForm(const Document &document)
{
    Document saved = document;
    OneRow grid;
    RowCollector collector(grid);
    for (qsizetype i = 0; i < saved.rows.size(); ++i) {
        grid.show(document.rows[i]);
        if (!collector.collect(1)) {
            return std::nullopt;
        }
        takeFields(collector.fields(), saved.rows[i]);
    }
    return saved;
}

std::optional<PrRecord> savedForm(const PrRecord &record)
{
    OneRow grid;
    grid.show(record);
    RowCollector collector(grid);
    if (!collector.collect(1)) {
        return std::nullopt;
    }
    PrRecord saved = record;
    takeFields(collector.fields(), saved);
    return saved;
}
