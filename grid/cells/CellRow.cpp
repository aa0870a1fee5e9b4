#include "grid/cells/CellRow.h"

#include <algorithm>
#include <limits>
#include <new>

// It is followed by the end offset of each text, and these by the texts.
struct CellRow::Buffer
{
    quint32 references;
    quint32 count;

    quint32 *ends() { return reinterpret_cast<quint32 *>(this + 1); }
    const quint32 *ends() const { return reinterpret_cast<const quint32 *>(this + 1); }
    char16_t *units() { return reinterpret_cast<char16_t *>(ends() + count); }
    const char16_t *units() const { return reinterpret_cast<const char16_t *>(ends() + count); }
};

CellRow::CellRow(std::span<const QStringView> texts)
{
    qsizetype units = 0;
    for (const QStringView text : texts) {
        units += text.size();
    }
    Q_ASSERT(units <= std::numeric_limits<quint32>::max());
    if (units == 0) {
        return;
    }
    void *memory = ::operator new(sizeof(Buffer) + texts.size() * sizeof(quint32) + size_t(units) * sizeof(char16_t));
    m_buffer = new (memory) Buffer{1, quint32(texts.size())};
    quint32 *end = m_buffer->ends();
    char16_t *const begin = m_buffer->units();
    char16_t *unit = begin;
    for (const QStringView text : texts) {
        unit = std::copy_n(text.utf16(), text.size(), unit);
        *end++ = quint32(unit - begin);
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
    const size_t unitBytes = size_t(allTexts().size()) * sizeof(char16_t);
    return m_buffer ? qsizetype(sizeof(Buffer) + m_buffer->count * sizeof(quint32) + unitBytes) : 0;
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
    const quint32 *ends = m_buffer->ends();
    const quint32 begin = column == 0 ? 0 : ends[column - 1];
    return QStringView(m_buffer->units() + begin, qsizetype(ends[column] - begin));
}

void CellRow::copyTexts(std::span<QStringView> texts) const
{
    const auto held = std::min(texts.size(), size_t(size()));
    quint32 begin = 0;
    for (size_t column = 0; column < held; ++column) {
        const quint32 end = m_buffer->ends()[column];
        texts[column] = QStringView(m_buffer->units() + begin, qsizetype(end - begin));
        begin = end;
    }
    std::ranges::fill(texts.subspan(held), QStringView());
}

QStringView CellRow::allTexts() const
{
    return m_buffer ? QStringView(m_buffer->units(), qsizetype(m_buffer->ends()[m_buffer->count - 1])) : QStringView();
}
