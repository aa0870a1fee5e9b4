#include "bench/BenchDocument.h"

#include "bench/Baselines.h"
#include "bench/DocumentGenerator.h"
#include "document/DocumentTables.h"
#include "document/PrFile.h"
#include "runtime/AnsiText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr qint16 docNo = 1;

} // namespace

void BenchHost::runPendingEvents()
{
    baselines::passEvents(m_events ? 1 : 0);
}

BenchDocument::BenchDocument(int rowCount, int nameLength) : m_rowCount(rowCount), m_folder(benchFolderTemplate())
{
    qputenv("XDG_DATA_HOME", m_folder.filePath(u"data"_s).toLocal8Bit());
    setAnsiCodePageNumber(1252);
    resetDocumentTables();
    growDocumentTables(docNo);
    DocumentGenerator(1, nameLength).write(m_rowCount, fileName());
    std::vector<CellRow> rows = read(true);
    rows.resize(size_t(m_rowCount));
    m_grid = std::make_unique<RecordGrid>(std::move(rows));
}

std::vector<CellRow> BenchDocument::read(bool events) const
{
    BenchHost host(events);
    std::vector<CellRow> rows;
    ReadPrFile(fileName(), docNo, rows, host);
    return rows;
}

void BenchDocument::save(bool events) const
{
    BenchHost host(events);
    if (!saveDocument(savedName(), {MachineInfos[docNo], *m_grid, documentOrigin(docNo)}, host)) {
        qFatal("not saved");
    }
}

void BenchDocument::writeCells(const QString &fileName, char separator) const
{
    QByteArray bytes;
    for (int row = 1; row <= m_rowCount; ++row) {
        for (int column = 1; column <= ParameterColumn::Count; ++column) {
            QByteArray cell = m_grid->cellText(column, row).toUtf8();
            bytes += separator == ',' ? '"' + cell.replace('"', "\"\"") + '"' : cell;
            bytes += column < ParameterColumn::Count ? separator : '\n';
        }
    }
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write the cells");
    }
}

QString benchFolderTemplate()
{
    const QString memory = u"/dev/shm"_s;
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + u"/tabrix-bench-XXXXXX"_s;
}
