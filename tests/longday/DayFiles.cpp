// What the user of the long day does with files: opening, saving, closing.

#include "tests/editor/RowsFile.h"
#include "tests/longday/Day.h"

#include <QDir>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

constexpr int maxWindows = 5;

QJsonObject pressing(const QString &keys)
{
    return {{u"do"_s, u"press"_s}, {u"text"_s, keys}};
}

QJsonObject choosing(const QString &menu, const QString &command)
{
    return {{u"do"_s, u"menu"_s}, {u"menu"_s, menu}, {u"text"_s, command}};
}

} // namespace

QString Day::randomPath()
{
    static const QStringList names{u"a.inv"_s, u"b.inv"_s, u"c.ine"_s, u"d.inv"_s, u"e & f.inv"_s, u"g%1.inv"_s};
    return QDir::current().filePath(oneOf(names));
}

// Opening

bool Day::openPath(const QString &path, const QJsonObject &command, const QList<Expected> &expected)
{
    const auto rows = RowsFile::rows(m_model.files.value(path));
    if (program().windows.size() >= maxWindows || (m_model.files.contains(path) && !rows)) {
        return false;
    }
    say(path);
    QList<Expected> all = expected;
    if (!rows) { // it has gone
        all << Expected{u"message"_s, {}, u"OK"_s};
    }
    run(command, all);
    if (rows) {
        m_model.open(m_front, path, true, *rows);
    } else {
        m_model.failToOpen(m_front);
    }
    return true;
}

bool Day::open()
{
    const QString path = oneOf(m_model.files.keys());
    return openPath(path, pressing(u"Ctrl+O"_s), {{u"file"_s, {}, path}});
}

bool Day::openRecent()
{
    const QStringList &listed = program().active != 0 ? window().recent : program().recent;
    if (listed.isEmpty()) {
        return false;
    }
    const int entry = upTo(1, int(listed.size()));
    const QString path = listed.at(entry - 1); // the list is another one when the file is open
    const bool opened = openPath(path, {{u"do"_s, u"recent"_s}, {u"number"_s, entry}}, {});
    if (opened) {
        m_model.showRecent(m_front);
    }
    return opened;
}

// Saving

/// A save by name or, where that is asked for, by dialog.
Day::Save Day::planSave(const DayWindow &window, bool asksForName)
{
    Save save{.path = QDir::current().filePath(window.caption)};
    if (asksForName && chance(20)) {
        save.path.clear();
        save.boxes << Expected{u"file"_s, {}, u"Escape"_s};
    } else if (asksForName) {
        save.path = randomPath();
        save.boxes << Expected{u"file"_s, {}, save.path};
        if (m_model.files.contains(save.path)) { // the dialog's own question
            save.boxes << Expected{u"message"_s, {}, u"Yes"_s};
        }
    }
    say(save.path);
    if (!save.path.isEmpty()) {
        addQuestions(save, window, asksForName);
    }
    return save;
}

void Day::addQuestions(Save &save, const DayWindow &window, bool mayReplace)
{
    const auto ask = [&](const QString &what) {
        save.isDeclined = chance(35);
        save.boxes << Expected{u"question"_s, {}, save.isDeclined ? u"No"_s : u"Yes"_s};
        say(save.boxes.last().answer + u" to "_s + what);
    };
    if (!window.comesBack()) {
        ask(u"what would not come back"_s);
        save.asksBack = save.isDeclined;
    }
    if (!save.isDeclined && !mayReplace && m_model.replacesForeign(m_front, window, save.path)) {
        ask(u"another program's content"_s);
    }
}

/// Saves the active window.
bool Day::carryOut(const Save &save, const QJsonObject &command)
{
    m_path = save.path;
    m_saveFailed = false;
    run(command, save.boxes);
    m_path.clear();
    finishSave(window(), save);
    return true;
}

/// The model's share of a save, and a look at what was in the file before.
void Day::finishSave(DayWindow &window, const Save &save)
{
    const QString &path = save.path;
    if (save.asksBack) {
        window.goToFirstFault();
    }
    if (save.isDeclined || path.isEmpty()) {
        return;
    }
    const auto before = m_model.files.contains(path) ? std::optional(m_model.files[path]) : std::nullopt;
    if (m_saveFailed) {
        ++m_counts[u"(saves that failed)"_s];
        const auto left = read(path);
        if (left && left != before && !window.bytes().startsWith(*left)) {
            complain(u"a failed save has left what nobody wrote in "_s + path);
        }
        if (left) {
            m_model.files[path] = *left;
            program().written[path] = *left;
        }
    } else {
        m_model.save(m_front, window, path, save.isListed);
    }
    // What a failed save has left is nothing to keep.
    if (before && !m_torn.contains(path) && m_model.files.value(path) != *before && !isKept(*before)) {
        complain(u"the earlier content of %1 is nowhere"_s.arg(path));
    }
    m_saveFailed ? void(m_torn << path) : void(m_torn.remove(path));
}

bool Day::save()
{
    return program().active != 0
        && carryOut(planSave(window(), window().caption == DayModel::untitled()), pressing(u"Ctrl+S"_s));
}

/// Without a dialog, also for an untitled document, and without an entry among the recent files.
bool Day::saveByTool()
{
    if (program().active == 0) {
        return false;
    }
    Save save = planSave(window(), false);
    save.isListed = false;
    return carryOut(save, {{u"do"_s, u"tool"_s}, {u"text"_s, u"ssrbnSave"_s}});
}

bool Day::saveAs()
{
    return program().active != 0 && carryOut(planSave(window(), true), choosing(u"mneFile"_s, u"mneFileSaveAs"_s));
}

/// While no window looks.
bool Day::writeByOthers()
{
    const QString path = oneOf(m_model.files.keys());
    if (m_disk.isFull()) {
        return false;
    }
    say(path);
    m_model.files[path] = RowsFile::bytes({randomRow(1), randomRow(2), randomRow(3)});
    write(path, m_model.files[path]);
    m_torn.remove(path);
    return true;
}

// Closing

Day::Closing Day::planClosing(const DayWindow &window, bool maySave)
{
    Closing closing{.number = window.number};
    if (!window.rows.isChanged()) {
        return closing;
    }
    QStringList answers{u"No"_s, u"No"_s, u"Cancel"_s, u"Escape"_s};
    if (maySave) {
        answers << u"Yes"_s << u"Yes"_s << u"Yes"_s;
    }
    closing.answer = oneOf(answers);
    closing.boxes << Expected{u"message"_s, window.caption + u" is update.\nSave?"_s, closing.answer};
    say(u"%1 to window %2"_s.arg(closing.answer).arg(window.number));
    if (closing.answer == u"Yes") {
        closing.save = planSave(window, window.caption == DayModel::untitled());
        closing.boxes << closing.save.boxes;
    }
    return closing;
}

/// What was to be saved and is not comes back with the next start.
void Day::finishClosing(const Closing &closing)
{
    DayWindow &window = *program().window(closing.number);
    if (closing.answer == u"Yes") {
        finishSave(window, closing.save);
    }
    if (closing.isRefused()) {
        return;
    }
    if (closing.answer == u"Yes" && window.rows.isChanged()) {
        program().leftBehind.push_back({window.caption, window.hasMachine, window.rows.asRecovered()});
    }
    m_model.close(m_front, closing.number);
}

bool Day::closeWindow()
{
    if (program().active == 0) {
        return false;
    }
    const Closing closing = planClosing(window(), true);
    m_path = closing.save.path;
    m_saveFailed = false;
    const QJsonObject shown = run(choosing(u"mneFile"_s, u"mneFileClose"_s), closing.boxes);
    m_path.clear();
    finishClosing(closing);
    adoptActive(shown);
    return true;
}

/// Every window is asked about, until one stays. One save on the way at most, so that each is planned for the files as
/// they are.
bool Day::leave(const QJsonObject &command, bool inBackground)
{
    takeForeignText(); // what the program has on the clipboard would go with it
    QList<Expected> boxes;
    std::vector<Closing> closings;
    bool maySave = true;
    for (const DayWindow &window : program().windows) {
        closings.push_back(planClosing(window, maySave));
        boxes << closings.back().boxes;
        maySave = maySave && closings.back().answer != u"Yes";
        if (closings.back().isRefused()) {
            break;
        }
    }
    m_saveFailed = false;
    QJsonObject whole = command;
    whole[u"inBackground"_s] = inBackground && boxes.isEmpty();
    const QJsonObject shown = run(whole, boxes);
    const bool stays = !closings.empty() && closings.back().isRefused();
    for (const Closing &closing : closings) {
        finishClosing(closing);
    }
    if (stays) {
        program().isMinimised = false; // it was restored to ask
        adoptActive(shown);
    } else {
        endProgram();
    }
    return true;
}

bool Day::exitProgram()
{
    return !m_disk.isFull()
        && leave(chance(50) && program().active != 0 ? choosing(u"mneFile"_s, u"mneFileExit"_s)
                                                     : QJsonObject{{u"do"_s, u"closeFrame"_s}},
            false);
}

/// As from a task bar.
bool Day::closeMinimised()
{
    if (m_disk.isFull() || m_model.programs.at(size_t(1 - m_front)).isMinimised) {
        return false;
    }
    const int number = m_front;
    minimise();
    if (const QString between = difference(); !between.isEmpty()) {
        complain(between);
    }
    m_front = number;
    return leave({{u"do"_s, u"closeFrame"_s}}, true);
}
