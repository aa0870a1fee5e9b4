// What a user meets in an editor window.

#include "bench/Baselines.h"
#include "bench/BenchDocument.h"
#include "bench/Desk.h"
#include "bench/PlainView.h"
#include "bench/ProcessMemory.h"
#include "bench/SpeedRows.h"
#include "bench/SpeedTable.h"
#include "editor/frmPrFile.h"
#include "print/GridPrinter.h"
#include "print/PrintJob.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPdfWriter>
#include <QScrollBar>

#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr double milliseconds = 1000;
constexpr double maxGrowth = 1.1;

Measured measureOpen(Desk &desk)
{
    const auto own = [&desk] {
        const double seconds = secondsOf([&desk] { desk.openAgain(); });
        desk.closeActive();
        return milliseconds * seconds;
    };
    const auto baseline = [&desk] {
        return milliseconds * secondsOf([&desk] {
            const QStringList fields = baselines::splitFile(desk.fileName());
            baselines::passEvents(desk.rowCount());
        });
    };
    return sideBySide(own, baseline);
}

/// Scrolls one of the views by so many rows at a time.
double scrollSeconds(const std::function<void(int)> &show, int steps, int rows)
{
    return secondsOf([&] {
        for (int i = 0; i < steps; ++i) {
            show(1 + i * rows);
            QApplication::processEvents();
        }
    });
}

/// The milliseconds of showing so many times the rows that follow by so many.
auto scrollTime(const auto &show, int steps, int rows)
{
    return [=] { return milliseconds / steps * scrollSeconds(show, steps, rows); };
}

constexpr int pageRows = 32;

double measurePages(const Desk &desk)
{
    const int steps = desk.rowCount() / pageRows - 2;
    const auto inGrid = [&desk](int row) { desk.grid().setTopRow(row); };
    return sideBySide(scrollTime(inGrid, steps, pageRows), [] { return 0.0; }).own;
}

void addScrollRows(SpeedTable &table, const Desk &desk, double typicalPage)
{
    constexpr int steps = 1000;
    const PlainRows texts = desk.plainRows();
    PlainPage page(desk.grid(), texts);
    PlainView view(texts);
    view.resize(desk.grid().size());
    page.show();
    view.show();
    QApplication::processEvents();
    const auto inGrid = [&desk](int row) { desk.grid().setTopRow(row); };
    const auto onPage = [&page](int row) {
        page.setTopRow(row);
        page.update();
    };
    const auto inView = [&view](int row) { view.verticalScrollBar()->setValue(row); };
    const Measured pages = sideBySide(scrollTime(inGrid, steps, pageRows), scrollTime(onPage, steps, pageRows));
    table.add("scrolling 1,000 pages, a page", "the same cells painted as plain text", "ms", pages, 1.5);
    table.add("scrolling 1,000 pages, a page", "a plain QTableView", "ms",
        sideBySide(scrollTime(inGrid, steps, pageRows), scrollTime(inView, steps, pageRows)), 1);
    table.add("scrolling 1,000 pages, a page, growth to 32,767 rows", "1,000 rows", "ms", {pages.own, typicalPage},
        maxGrowth);
    table.add("scrolling 1,000 rows, a row", "a plain QTableView", "ms",
        sideBySide(scrollTime(inGrid, steps, 1), scrollTime(inView, steps, 1)), 1);
}

Measured measureFind(const Desk &desk)
{
    QString all;
    for (const PlainRow &row : desk.plainRows()) {
        for (const QString &text : row) {
            all += text;
        }
    }
    const QString searched = u"a\u3042"_s;
    const auto own = [&] {
        desk.grid().setSearchedText({});
        return milliseconds * secondsOf([&] {
            desk.grid().setSearchedText(searched);
            desk.grid().goToFoundFrom(1, 1);
        });
    };
    const auto baseline = [&] {
        return milliseconds * secondsOf([&] {
            const void *found = memmem(all.utf16(), std::size_t(all.size()) * sizeof(char16_t), searched.utf16(),
                std::size_t(searched.size()) * sizeof(char16_t));
            if (found != nullptr) {
                qFatal("the text is there");
            }
        });
    };
    const Measured measured = sideBySide(own, baseline);
    desk.grid().setSearchedText({});
    return measured;
}

void addPrintRows(SpeedTable &table, const Desk &desk, double typicalTime)
{
    constexpr double megabyte = 1024 * 1024;
    const qint64 before = residentBytes();
    forgetPeak();
    const Printed printed = printRows(desk);
    const double peak = double(peakBytes() - before) / megabyte;
    table.addLeast("32,767 rows to PDF", "pages a second", printed.pages * 1000 / printed.milliseconds, 500);
    table.addLimit("32,767 rows to PDF, memory beyond that before", "MB", peak, 150);
    table.addGrowth("32,767 rows to PDF", printed.milliseconds, typicalTime);
}

} // namespace

Printed printRows(const Desk &desk)
{
    const QTemporaryDir folder(benchFolderTemplate());
    QPdfWriter paper(folder.filePath(u"rows.pdf"_s));
    QElapsedTimer timer;
    timer.start();
    PrintJob job(paper, u"rows"_s);
    if (printGrid(desk.grid(), {}, job, nullptr) != PrintOutcome::Done || !job.end()) {
        qFatal("not printed");
    }
    return {double(timer.nsecsElapsed()) / 1e6, job.pageCount()};
}

void addEditorRows(SpeedTable &table)
{
    auto typical = std::make_unique<Desk>(typicalRows);
    const Measured openTypical = measureOpen(*typical);
    const Measured findTypical = measureFind(*typical);
    const double pageTypical = measurePages(*typical);
    printRows(*typical); // loads what only printing needs
    const Printed printTypical = printRows(*typical);
    typical.reset();
    Desk desk(maxRows);
    const Measured open = measureOpen(desk);
    table.add("open 32,767 rows to the filled grid", "decode, split, as many empty event passes", "ms", open, 1.8);
    table.addGrowth("open", open.own, openTypical.own);
    addScrollRows(table, desk, pageTypical);
    const Measured find = measureFind(desk);
    table.add("find a text that is not there", "memmem over the same UTF-16", "ms", find, 3);
    table.addGrowth("find", find.own, findTypical.own);
    addPrintRows(table, desk, printTypical.milliseconds);
}
