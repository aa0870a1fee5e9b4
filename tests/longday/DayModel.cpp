#include "tests/longday/DayModel.h"

#include "tests/editor/RowsFile.h"

#include <algorithm>

QByteArray DayWindow::bytes() const
{
    return hasMachine ? RowsFile::bytes(rows.rows()) : RowsFile::untitledBytes(rows.rows());
}

namespace {

// What a file keeps as it was typed; the other columns are put together from numbers.
constexpr std::array textColumns{1, 2, 8, 10};

bool losesSome(const QString &text)
{
    return text.contains(u',') || text.contains(u'\r') || text.contains(u'\n') || text.startsWith(u'"')
        || text.startsWith(u' ') || text.endsWith(u' ');
}

} // namespace

bool DayWindow::comesBack() const
{
    const bool losesText = std::ranges::any_of(rows.rows(), [](const RowsModel::Row &row) {
        return std::ranges::any_of(textColumns, [&row](int column) { return losesSome(row.at(size_t(column - 1))); });
    });
    return (hasMachine || rows.rowCount() == 0) && !losesText;
}

// What the machine information lacks comes first; it has no cell.
void DayWindow::goToFirstFault()
{
    for (int row = 1; hasMachine && row <= rows.rowCount(); ++row) {
        for (const int column : textColumns) {
            if (losesSome(rows.text(column, row))) {
                rows.select({column, row, column, row});
                return;
            }
        }
    }
}

void DayWindow::isCopied()
{
    forgetCopies();
    if (rows.isChanged()) {
        mayBeCopied();
        mustComeBack = true;
    }
}

void DayWindow::forgetCopies()
{
    copies.clear();
    mustComeBack = false;
}

DayWindow *DayProgram::window(int number)
{
    const auto found = std::ranges::find(windows, number, &DayWindow::number);
    return found == windows.end() ? nullptr : &*found;
}

DayWindow &DayProgram::activeWindow()
{
    return *window(active);
}

// The lowest free number; a new one when there is none.
int DayProgram::takeSlot()
{
    const auto free = std::ranges::find(usedNumbers, false);
    if (free == usedNumbers.end()) {
        usedNumbers.push_back(true);
        return int(usedNumbers.size());
    }
    *free = true;
    return int(free - usedNumbers.begin()) + 1;
}

void DayProgram::activate(int number)
{
    active = number;
    hasAllButtons = false;
    losesCopy();
    clipboard.canPaste = !clipboard.text.isEmpty();
    clipboard.canAddPaste = clipboard.canPaste && clipboard.copied == RowsModel::Copied::Rows;
}

bool DayProgram::losesCopy()
{
    const bool loses = clipboard.copied != RowsModel::Copied::Nothing && clipboard.text != copiedText;
    if (loses) {
        clipboard.copied = RowsModel::Copied::Nothing;
    }
    return loses;
}

// Entries beyond the stored ones keep what they show.
void DayProgram::show(const QStringList &files)
{
    const auto showIn = [&files](QStringList &entries) { entries = files + entries.mid(files.size()); };
    showIn(recent);
    for (DayWindow &window : windows) {
        showIn(window.recent);
    }
}

void DayModel::start(int number, const std::vector<DayCopy> &recovered)
{
    DayProgram &program = programs.at(size_t(number));
    const QString clipboard = program.clipboard.text;
    program = DayProgram();
    program.clipboard.text = clipboard;
    program.windows.push_back({program.takeSlot(), untitled(), false, RowsModel({RowsModel::Row()}), {}});
    program.show(storedFiles());
    for (const DayCopy &copy : recovered) {
        DayWindow window{program.takeSlot(), copy.caption, copy.hasMachine, copy.rows, program.recent};
        if (files.contains(copy.caption)) { // it is taken to know what stands there now
            window.seenPath = copy.caption;
            window.seen = files[copy.caption];
        }
        window.isCopied();
        program.windows.push_back(window);
    }
    program.activate(program.windows.back().number);
}

void DayModel::open(int number, const QString &path, bool hasMachine, const std::vector<RowsModel::Row> &rows)
{
    DayProgram &program = programs.at(size_t(number));
    const int slot = program.takeSlot();
    const auto place = std::ranges::upper_bound(program.windows, slot, {}, &DayWindow::number);
    program.windows.insert(place, {slot, path, hasMachine, RowsModel(rows), program.recent, path, files.value(path)});
    program.activate(slot);
    program.hasAllButtons = true;
    addRecent(number, path);
}

bool DayModel::replacesForeign(int number, const DayWindow &window, const QString &path) const
{
    const auto present = files.find(path);
    const QMap<QString, QByteArray> &written = programs.at(size_t(number)).written;
    if (present == files.end() || (written.contains(path) && written[path] == *present)) {
        return false;
    }
    return window.seenPath != path || window.seen != *present;
}

void DayModel::save(int number, DayWindow &window, const QString &path, bool listed)
{
    files[path] = window.bytes();
    programs.at(size_t(number)).written[path] = files[path];
    window.seenPath = path;
    window.seen = files[path];
    window.rows.save();
    window.forgetCopies();
    if (listed) {
        window.caption = path;
        addRecent(number, path);
    }
}

void DayModel::close(int number, int window)
{
    DayProgram &program = programs.at(size_t(number));
    program.usedNumbers.at(size_t(window - 1)) = false;
    std::erase_if(program.windows, [window](const DayWindow &one) { return one.number == window; });
    if (program.active == window) {
        program.active = 0;
    }
}

// A program without a window looks at the clipboard when it has one again; any other one only when there is a copy of
// its own to lose, or a window is activated.
void DayModel::takeForeignText(int number, const QString &text)
{
    DayProgram &program = programs.at(size_t(number));
    program.clipboard.text = text;
    if (program.active != 0 && program.losesCopy()) {
        program.clipboard.canPaste = !text.isEmpty();
        program.clipboard.canAddPaste = false;
        program.hasAllButtons = false;
    }
}

// A file that is listed already, by another program perhaps, stays where it is.
void DayModel::addRecent(int number, const QString &path)
{
    DayProgram &program = programs.at(size_t(number));
    program.show(storedFiles());
    if (!program.recent.contains(path)) {
        store(path);
    }
    program.show(storedFiles());
}

// An empty entry is not moved, so that a gap is filled from above.
void DayModel::store(const QString &path)
{
    for (size_t i = stored.size() - 1; i > 0; --i) {
        if (!stored.at(i - 1).isEmpty()) {
            stored.at(i) = stored.at(i - 1);
        }
    }
    stored.front() = path;
}

QStringList DayModel::storedFiles() const
{
    QStringList listed;
    if (!stored.front().isEmpty()) {
        std::ranges::copy_if(stored, std::back_inserter(listed), [](const QString &file) { return !file.isEmpty(); });
    }
    return listed;
}
