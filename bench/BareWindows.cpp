// bench_bare: what Qt alone takes. "mdi" shows a bare window of documents with one empty table view; "table FILE" fills
// a QTableWidget with the tab-separated cells of a file. Both end once they are painted.

#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QMdiArea>
#include <QPaintEvent>
#include <QTableWidget>
#include <QTimer>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// Ends the process after the first paint of a viewport.
class EndAtPaint : public QObject
{
public:
    explicit EndAtPaint(QWidget &viewport) : QObject(&viewport) { viewport.installEventFilter(this); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            QTimer::singleShot(0, qApp, [] { std::_Exit(0); });
        }
        return QObject::eventFilter(watched, event);
    }
};

int showArea()
{
    QMainWindow window;
    auto *area = new QMdiArea;
    area->addSubWindow(new QTableView);
    window.setCentralWidget(area);
    new EndAtPaint(*area->viewport()); // the viewport owns it
    window.showMaximized();
    return QApplication::exec();
}

int showTable(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        return 1;
    }
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    QMainWindow window;
    auto *table = new QTableWidget(int(lines.size()), int(lines.value(0).count(u'\t')) + 1);
    window.setCentralWidget(table);
    for (int row = 0; row < lines.size(); ++row) {
        const QStringList cells = lines[row].split(u'\t');
        for (int column = 0; column < cells.size(); ++column) {
            table->setItem(row, column, new QTableWidgetItem(cells[column]));
        }
    }
    new EndAtPaint(*table->viewport()); // the viewport owns it
    window.showMaximized();
    return QApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    return arguments.value(1) == "table"_L1 ? showTable(arguments.value(2)) : showArea();
}
