#pragma once

#include <QStringView>
#include <QtGlobal>

#include <span>
#include <utility>

/// The texts of one row in one block of memory. A row never changes, it is replaced by another one. Copies share the
/// memory, so that moving or keeping a row costs one pointer. Columns count from 0 here. For one thread only.
class CellRow
{
public:
    CellRow() = default; ///< all cells empty
    explicit CellRow(std::span<const QStringView> texts);
    /// texts: of all cells, one after another; ends: where each of them ends there.
    CellRow(const char16_t *texts, std::span<const quint32> ends);
    CellRow(const CellRow &other) noexcept;
    CellRow(CellRow &&other) noexcept : m_buffer(std::exchange(other.m_buffer, nullptr)) { }
    CellRow &operator=(CellRow other) noexcept;
    friend void swap(CellRow &one, CellRow &other) noexcept { std::swap(one.m_buffer, other.m_buffer); }
    ~CellRow();

    /// How many cells the row holds texts for; cells after these are empty.
    int size() const;
    /// Without a copy; valid as long as a row that shares the memory exists.
    QStringView text(int column) const;
    /// The same for the first columns, as many as texts has places; cells that the row does not hold are empty.
    void copyTexts(std::span<QStringView> texts) const;
    /// The texts of all cells, one after another.
    QStringView allTexts() const;

    bool sharesMemoryWith(const CellRow &other) const { return m_buffer == other.m_buffer; }
    /// Whether another row has the same memory.
    bool isShared() const;
    /// The address of the row's memory, to tell one from another; nullptr if all cells are empty.
    const void *memory() const { return m_buffer; }
    /// The bytes of that memory, whether it is shared or not.
    qsizetype memorySize() const;

    /// Whether all cells hold equal texts.
    bool operator==(const CellRow &other) const;

private:
    struct Buffer;

    Buffer *m_buffer = nullptr;
};
