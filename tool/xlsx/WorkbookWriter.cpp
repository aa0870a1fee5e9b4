#include "tool/xlsx/Workbook.h"

#include <algorithm>
#include <cerrno>
#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace {

/// Readers take "_x0041_" for the character of that code, and XML has no form for some characters.
QByteArray cellText(const QString &text)
{
    constexpr qsizetype codeLength = 7;
    const auto isHexDigit = [](QChar c) { return QByteArrayView("0123456789ABCDEFabcdef").contains(c.toLatin1()); };
    QString escaped;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QStringView code = QStringView(text).mid(i, codeLength);
        const QChar character = text[i];
        if (character.isNull()) {
            escaped += "_x0000_"_L1; // the library ends the text there
        } else if (code.size() == codeLength && code.startsWith("_x"_L1) && code.endsWith(u'_')
            && std::ranges::all_of(code.sliced(2, 4), isHexDigit)) {
            escaped += "_x005F_"_L1;
        } else {
            escaped += character.unicode() < 0xFFFE ? character : QChar(QChar::ReplacementCharacter);
        }
    }
    return escaped.toUtf8();
}

/// Fills one sheet; the first error is kept.
class SheetWriter
{
public:
    SheetWriter(lxw_workbook &workbook, const WorkbookSheet &sheet);

    lxw_error write();

private:
    void writeRow(lxw_row_t row);
    void layOut();
    void note(lxw_error error) { m_error = m_error == LXW_NO_ERROR ? error : m_error; }

    const WorkbookSheet &m_sheet;
    lxw_worksheet *m_target;
    lxw_format *m_heading;
    lxw_error m_error = LXW_NO_ERROR;
};

SheetWriter::SheetWriter(lxw_workbook &workbook, const WorkbookSheet &sheet)
    : m_sheet(sheet)
    , m_target(workbook_add_worksheet(&workbook, sheet.title.toUtf8().constData()))
    , m_heading(workbook_add_format(&workbook))
{
    format_set_bold(m_heading);
}

lxw_error SheetWriter::write()
{
    if (!m_target) {
        return LXW_ERROR_SHEETNAME_ALREADY_USED;
    }
    layOut();
    for (lxw_row_t row = 0; row < lxw_row_t(m_sheet.rows.size()); ++row) {
        writeRow(row);
    }
    return m_error;
}

void SheetWriter::writeRow(lxw_row_t row)
{
    const WorkbookRow &content = m_sheet.rows[row];
    lxw_format *format = content.isHeading ? m_heading : nullptr;
    for (lxw_col_t column = 0; column < lxw_col_t(content.cells.size()); ++column) {
        const WorkbookCell &cell = content.cells[column];
        if (cell.isNumber) {
            note(worksheet_write_number(m_target, row, column, cell.text.toDouble(), format));
        } else if (!cell.text.isEmpty()) {
            note(worksheet_write_string(m_target, row, column, cellText(cell.text).constData(), format));
        }
    }
}

void SheetWriter::layOut()
{
    for (lxw_col_t column = 0; column < lxw_col_t(m_sheet.widths.size()); ++column) {
        note(worksheet_set_column(m_target, column, column, m_sheet.widths[column], nullptr));
    }
    if (m_sheet.isTable) {
        const auto lastRow = lxw_row_t(m_sheet.rows.size() - 1);
        const auto lastColumn = lxw_col_t(m_sheet.widths.size() - 1);
        worksheet_freeze_panes(m_target, 1, 1);
        note(worksheet_autofilter(m_target, 0, 0, lastRow, lastColumn));
        note(worksheet_repeat_rows(m_target, 0, 0));
        worksheet_set_landscape(m_target);
        worksheet_fit_to_pages(m_target, 1, 0);
    }
}

/// Fills the workbook and closes it, which frees it in any case.
QString written(lxw_workbook &target, const Workbook &workbook)
{
    lxw_doc_properties properties{};
    properties.created = time_t(workbook.created);
    lxw_error error = workbook_set_properties(&target, &properties);
    for (const WorkbookSheet &sheet : workbook.sheets) {
        const lxw_error ofSheet = SheetWriter(target, sheet).write();
        error = error == LXW_NO_ERROR ? ofSheet : error;
    }
    errno = 0;
    const lxw_error closing = workbook_close(&target);
    const int systemError = errno;
    if (error == LXW_NO_ERROR && closing != LXW_NO_ERROR && systemError != 0) {
        return qt_error_string(systemError);
    }
    error = error == LXW_NO_ERROR ? closing : error;
    return error == LXW_NO_ERROR ? QString() : QString::fromUtf8(lxw_strerror(error));
}

} // namespace

extern "C" Q_DECL_EXPORT WriteWorkbook writeWorkbook;

void writeWorkbook(const Workbook &workbook, const QByteArray &fileName, const QByteArray &folder, QString &failure)
{
    QByteArray temporary = folder;
    lxw_workbook_options options{LXW_FALSE, temporary.data(), LXW_FALSE};
    lxw_workbook *target = workbook_new_opt(fileName.constData(), &options);
    failure = target ? written(*target, workbook) : QString::fromUtf8(lxw_strerror(LXW_ERROR_MEMORY_MALLOC_FAILED));
}
