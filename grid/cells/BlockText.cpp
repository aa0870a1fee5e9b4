#include "grid/cells/BlockText.h"

bool BlockTextReader::nextRow()
{
    if (m_atEnd) {
        return false;
    }
    const qsizetype end = readCells();
    m_lineEnd = end < m_rest.size();
    const bool isPair = m_rest.sliced(end).startsWith(BlockText::rowEnd);
    m_rest = m_rest.sliced(end + (m_lineEnd ? 1 : 0) + (isPair ? 1 : 0));
    m_atEnd = m_rest.isEmpty();
    return true;
}

// Returns where the row ends in the rest: at its line end or at the end of the text.
qsizetype BlockTextReader::readCells()
{
    m_cells.clear();
    const char16_t *const units = m_rest.utf16();
    const qsizetype size = m_rest.size();
    qsizetype begin = 0;
    qsizetype at = 0;
    for (; at < size; ++at) {
        const char16_t unit = units[at];
        if (unit == BlockText::cellEnd) {
            m_cells.push_back(m_rest.sliced(begin, at - begin));
            begin = at + 1;
        } else if (unit == u'\r' || unit == u'\n') {
            break;
        }
    }
    m_cells.push_back(m_rest.sliced(begin, at - begin));
    return at;
}
