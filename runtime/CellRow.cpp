#include "runtime/CellRow.h"

#include <algorithm>
#include <limits>
#include <new>

// It is followed by the end offset of each text, and these by the texts. Nearly all rows are short enough for offsets
// of one byte.
struct CellRow::Buffer
{
    static constexpr quint32 longestShort = std::numeric_limits<quint8>::max();

    quint32 references = 1;
    quint16 count;
    bool isLong; ///< offsets have four bytes

    static Buffer *make(size_t count, size_t units);
    static size_t endsSize(size_t count, bool isLong);
    static size_t size(size_t count, size_t units);

    quint8 *shortEnds() { return reinterpret_cast<quint8 *>(this + 1); }
    const quint8 *shortEnds() const { return reinterpret_cast<const quint8 *>(this + 1); }
    quint32 *longEnds() { return reinterpret_cast<quint32 *>(this + 1); }
    const quint32 *longEnds() const { return reinterpret_cast<const quint32 *>(this + 1); }
    quint32 end(size_t column) const { return isLong ? longEnds()[column] : shortEnds()[column]; }
    size_t unitsAt() const { return sizeof(Buffer) + endsSize(count, isLong); }
    char16_t *units() { return reinterpret_cast<char16_t *>(reinterpret_cast<char *>(this) + unitsAt()); }
    const char16_t *units() const
    {
        return reinterpret_cast<const char16_t *>(reinterpret_cast<const char *>(this) + unitsAt());
    }
};

namespace {

template <typename End>
void copyTexts(const End *ends, const char16_t *units, std::span<QStringView> texts)
{
    quint32 begin = 0;
    for (QStringView &text : texts) {
        const quint32 end = *ends++;
        text = QStringView(units + begin, qsizetype(end - begin));
        begin = end;
    }
}

template <typename End>
void writeTexts(std::span<const QStringView> texts, char16_t *units, End *ends)
{
    const char16_t *const begin = units;
    for (const QStringView text : texts) {
        units = std::copy_n(text.utf16(), text.size(), units);
        *ends++ = End(units - begin);
    }
}

} // namespace

/// An even number of bytes, after which units can stand.
size_t CellRow::Buffer::endsSize(size_t count, bool isLong)
{
    return isLong ? count * sizeof(quint32) : (count + 1) / 2 * 2;
}

size_t CellRow::Buffer::size(size_t count, size_t units)
{
    return sizeof(Buffer) + endsSize(count, units > longestShort) + units * sizeof(char16_t);
}

CellRow::Buffer *CellRow::Buffer::make(size_t count, size_t units)
{
    Q_ASSERT(units <= std::numeric_limits<quint32>::max() && count <= std::numeric_limits<quint16>::max());
    void *memory = ::operator new(size(count, units));
    return new (memory) Buffer{.count = quint16(count), .isLong = units > longestShort};
}

CellRow::CellRow(std::span<const QStringView> texts)
{
    qsizetype units = 0;
    for (const QStringView text : texts) {
        units += text.size();
    }
    if (units == 0) {
        return;
    }
    m_buffer = Buffer::make(texts.size(), size_t(units));
    if (m_buffer->isLong) {
        writeTexts(texts, m_buffer->units(), m_buffer->longEnds());
    } else {
        writeTexts(texts, m_buffer->units(), m_buffer->shortEnds());
    }
}

CellRow::CellRow(const char16_t *texts, std::span<const quint32> ends)
{
    const quint32 units = ends.empty() ? 0 : ends.back();
    if (units == 0) {
        return;
    }
    m_buffer = Buffer::make(ends.size(), units);
    std::copy_n(texts, units, m_buffer->units());
    if (m_buffer->isLong) {
        std::ranges::copy(ends, m_buffer->longEnds());
    } else {
        std::ranges::transform(ends, m_buffer->shortEnds(), [](quint32 end) { return quint8(end); });
    }
}

CellRow::CellRow(const CellRow &other) noexcept : m_buffer(other.m_buffer)
{
    if (m_buffer) {
        ++m_buffer->references;
    }
}

CellRow &CellRow::operator=(CellRow other) noexcept
{
    std::swap(m_buffer, other.m_buffer);
    return *this;
}

CellRow::~CellRow()
{
    if (m_buffer && --m_buffer->references == 0) {
        ::operator delete(m_buffer);
    }
}

bool CellRow::isShared() const
{
    return m_buffer && m_buffer->references > 1;
}

qsizetype CellRow::memorySize() const
{
    return m_buffer ? qsizetype(Buffer::size(m_buffer->count, size_t(allTexts().size()))) : 0;
}

bool CellRow::operator==(const CellRow &other) const
{
    bool same = sharesMemoryWith(other) || allTexts() == other.allTexts();
    for (int column = 0; same && !sharesMemoryWith(other) && column < std::max(size(), other.size()); ++column) {
        same = text(column).size() == other.text(column).size();
    }
    return same;
}

int CellRow::size() const
{
    return m_buffer ? int(m_buffer->count) : 0;
}

QStringView CellRow::text(int column) const
{
    if (column < 0 || column >= size()) {
        return {};
    }
    const auto at = size_t(column);
    const quint32 begin = at == 0 ? 0 : m_buffer->end(at - 1);
    return QStringView(m_buffer->units() + begin, qsizetype(m_buffer->end(at) - begin));
}

void CellRow::copyTexts(std::span<QStringView> texts) const
{
    const auto held = std::min(texts.size(), size_t(size()));
    if (held > 0 && m_buffer->isLong) {
        ::copyTexts(m_buffer->longEnds(), m_buffer->units(), texts.first(held));
    } else if (held > 0) {
        ::copyTexts(m_buffer->shortEnds(), m_buffer->units(), texts.first(held));
    }
    std::ranges::fill(texts.subspan(held), QStringView());
}

QStringView CellRow::allTexts() const
{
    return m_buffer ? QStringView(m_buffer->units(), qsizetype(m_buffer->end(m_buffer->count - 1))) : QStringView();
}
