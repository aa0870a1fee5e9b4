#include "bench/Desk.h"

#include "bench/BenchDocument.h"
#include "document/DocumentTables.h"
#include "document/PrGrid.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"

#include <QApplication>

using namespace Qt::StringLiterals;

Desk::Desk(int rowCount, DocumentGenerator generator) : m_rowCount(rowCount), m_folder(benchFolderTemplate())
{
    generator.write(m_rowCount, fileName());
    m_frame.load({});
    m_frame.resize(1200, 800);
    m_frame.show();
    closeActive(); // the untitled document
    openAgain();
    m_texts.assign(grid().textRows().begin(), grid().textRows().end());
    QApplication::processEvents();
}

Desk::~Desk()
{
    DocFlags[editor().document().number()].changed = false;
}

frmPrFile &Desk::editor() const
{
    return *m_frame.activeEditor();
}

SpreadGrid &Desk::grid() const
{
    return editor().vaspdParam();
}

QString Desk::fileName() const
{
    return m_folder.filePath(u"a.inv"_s);
}

void Desk::openAgain()
{
    if (!m_frame.documents().OpenPrFile(fileName())) {
        qFatal("the generated document cannot be opened");
    }
}

void Desk::save()
{
    if (m_frame.documents().SavePrFile(editor(), fileName()) != SaveOutcome::Saved) {
        qFatal("not saved");
    }
}

// The window that becomes active is the one that was opened before.
void Desk::closeActive()
{
    editor().parentWidget()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Desk::restore() const
{
    grid().setRowCount(m_rowCount);
    std::vector<CellRow> rows;
    for (const CellRow &row : m_texts) {
        CellTexts texts;
        row.copyTexts(texts);
        rows.emplace_back(texts); // in memory of its own, as after an open
    }
    editor().SetPrInfSpread(rows);
}

PlainRows Desk::plainRows() const
{
    PlainRows rows(static_cast<size_t>(m_rowCount));
    for (int row = 1; row <= m_rowCount; ++row) {
        for (int column = 1; column <= benchColumnCount; ++column) {
            rows[size_t(row - 1)][size_t(column - 1)] = grid().text(column, row);
        }
    }
    return rows;
}
