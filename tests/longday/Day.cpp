#include "tests/longday/Day.h"

#include "tests/editor/RowsFile.h"
#include "tests/longday/DayCompare.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>

#include <iterator>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QString madeFolder(const QTemporaryDir &folder, const QString &name)
{
    QDir(folder.path()).mkpath(name);
    return folder.filePath(name);
}

} // namespace

Day::Day(unsigned seed) : m_random(seed), m_disk(madeFolder(m_folder, u"work"_s))
{
    qputenv("HOME", QFile::encodeName(m_folder.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.filePath(u"config"_s)));
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder.filePath(u"data"_s)));
    qputenv("LC_ALL", "C.UTF-8");
    for (const ActLine &line : acts()) {
        m_counts[QString::fromLatin1(line.name)] = 0;
    }
    QDir::setCurrent(m_folder.filePath(u"work"_s));
}

// All columns are shown, so that all can be clicked; the recent files begin with a gap and a file that is gone.
void Day::begin()
{
    for (const QString &name : {u"a.inv"_s, u"b.inv"_s, u"c.ine"_s}) {
        std::vector<RowsModel::Row> rows;
        for (int row = upTo(4, 16); row > 0; --row) {
            rows.insert(rows.begin(), randomRow(row));
        }
        const QString path = QDir::current().filePath(name);
        m_model.files[path] = RowsFile::bytes(rows);
        write(path, m_model.files[path]);
    }
    m_model.stored = {QDir::current().filePath(u"gone.inv"_s), QString(), QDir::current().filePath(u"b.inv"_s)};
    QByteArray settings = "[Recent%20Files]\nRecentFile1=" + m_model.stored[0].toUtf8()
        + "\nRecentFile3=" + m_model.stored[2].toUtf8() + "\n\n[WindowInf]\n";
    for (int column = 0; column < RowsModel::columnCount; ++column) {
        settings += "ListVisualState" + QByteArray::number(column) + "=False\n";
    }
    QDir(m_folder.path()).mkpath(u"config/Tabrix"_s);
    write(m_folder.filePath(u"config/Tabrix/Tabrix.conf"_s), settings);
    DayPeer::awaitWindowManager();
    for (m_front = 1; m_front >= 0; --m_front) {
        restart();
        comeToFront(m_front);
    }
    m_front = 0;
}

void Day::act()
{
    int weights = 0;
    for (const ActLine &line : acts()) {
        weights += line.weight;
    }
    for (;;) {
        int drawn = upTo(1, weights);
        auto chosen = acts().begin();
        while (drawn > chosen->weight) {
            drawn -= chosen++->weight;
        }
        m_done << u"%1: program %2, window %3: %4"_s.arg(m_done.size() + 1)
                      .arg(m_front)
                      .arg(program().active)
                      .arg(QString::fromLatin1(chosen->name));
        if ((this->*chosen->run)()) {
            ++m_counts[QString::fromLatin1(chosen->name)];
            return;
        }
        m_done.removeLast();
    }
}

void Day::say(const QString &words)
{
    m_done.last() += u", "_s + words;
}

void Day::complain(const QString &words)
{
    if (m_complaint.isEmpty()) {
        m_complaint = words;
    }
}

QJsonObject Day::run(const QJsonObject &command, const QList<Expected> &expected)
{
    m_expected = expected;
    QJsonObject shown = m_peers.at(size_t(m_front)).act(command, [this](const DayBox &box) { return answerTo(box); });
    if (!m_expected.isEmpty()) {
        complain(u"there was no "_s + m_expected.first().kind + u": "_s + m_expected.first().text);
    }
    return shown;
}

QString Day::answerTo(const DayBox &box)
{
    m_focusHasMoved = true;
    const QString shown = u"%1 \"%2\", \"%3\", %4"_s.arg(box.kind, box.title, box.text, box.buttons.join(u' '));
    if (!m_expected.isEmpty()) {
        const Expected expected = m_expected.takeFirst();
        const bool isQuestion = expected.kind == u"question";
        const bool isThat = isQuestion
            ? box.buttons == QStringList({u"Yes"_s, u"No"_s}) && box.preset == u"No"
            : box.kind == expected.kind && (expected.text.isEmpty() || expected.text == box.text);
        if (!isThat) {
            complain(shown + u" instead of a "_s + expected.kind + u' ' + expected.text);
        }
        return expected.answer;
    }
    if (m_disk.isFull() && !m_path.isEmpty() && box.buttons == QStringList(u"OK"_s)
        && QDir::current().filePath(box.title) == m_path) {
        say(u"which fails"_s);
        m_saveFailed = true;
        return u"OK"_s;
    }
    complain(u"nobody expects "_s + shown);
    return u"Escape"_s;
}

void Day::adoptActive(const QJsonObject &shown)
{
    const int active = shown[u"active"_s].toInt();
    if (active != program().active && program().window(active)) {
        program().activate(active);
    }
}

void Day::comeToFront(int number)
{
    const int former = m_front;
    m_front = number;
    m_focusHasMoved = true;
    m_peers.at(size_t(number)).bringToFront();
    const QJsonObject shown = run({{u"do"_s, u"look"_s}});
    if (former != number) {
        m_peers.at(size_t(former)).act({{u"do"_s, u"awaitInactive"_s}, {u"inBackground"_s, true}}, {});
    }
    program().isMinimised = false;
    adoptActive(shown);
}

// What one program puts on the clipboard reaches the other by way of the window system, some time later.
QString Day::difference()
{
    constexpr int attempts = 100;
    QString difference = m_complaint.isEmpty() ? fileDifference() : m_complaint;
    for (int number = 0; number < int(m_peers.size()) && difference.isEmpty(); ++number) {
        const QJsonObject look{{u"do"_s, u"look"_s}, {u"inBackground"_s, number != m_front}};
        for (int attempt = 0; attempt == 0 || (attempt < attempts && !difference.isEmpty()); ++attempt) {
            const QJsonObject shown = m_peers.at(size_t(number)).act(look, {});
            difference = differenceAfterFocus(number, shown);
        }
        if (!difference.isEmpty()) {
            difference.prepend(u"program %1: "_s.arg(number));
        }
    }
    return difference;
}

// Whether, and when, the active window is activated once more as its frame loses the focus or gets it back depends on
// how the window manager hands the focus on, and on a slow machine that takes longer than some acts; both are fine, and
// from then on one holds.
QString Day::differenceAfterFocus(int number, const QJsonObject &shown)
{
    DayProgram &program = m_model.programs.at(size_t(number));
    const bool mayBeActivated = m_focusHasMoved || number != m_front;
    if (mayBeActivated && program.active != 0 && !differenceFrom(program, shown).isEmpty()) {
        DayProgram activated = program;
        activated.activate(program.active);
        if (differenceFrom(activated, shown).isEmpty()) {
            program = activated;
            m_focusHasMoved = m_focusHasMoved && number != m_front;
        }
    }
    return differenceFrom(program, shown);
}

QString Day::fileDifference() const
{
    for (auto file = m_model.files.begin(); file != m_model.files.end(); ++file) {
        const auto bytes = read(file.key());
        if (bytes != file.value()) {
            return u"%1 holds\n%2instead of\n%3"_s.arg(
                file.key(), bytes ? QString::fromLatin1(*bytes) : u"(nothing)\n"_s, QString::fromLatin1(file.value()));
        }
    }
    const QStringList names = QDir::current().entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        if (!m_model.files.contains(QDir::current().filePath(name))) {
            return u"nobody has saved %1"_s.arg(name);
        }
    }
    return {};
}

std::optional<QByteArray> Day::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

void Day::write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("the test cannot write " + path.toStdString());
    }
}

/// Whether some file of the data folder is that, whole.
bool Day::isKept(const QByteArray &bytes) const
{
    QDirIterator files(m_folder.filePath(u"data"_s), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        if (read(files.next()) == bytes) {
            return true;
        }
    }
    return false;
}

RowsModel::Row Day::randomRow(int number)
{
    RowsModel::Row row;
    for (int column = 1; column <= RowsModel::columnCount; ++column) {
        row.at(size_t(column - 1)) = randomText(column);
    }
    row[0] = QString::number(number);
    return row;
}

/// Texts that the keyboard has and a file gives back.
const QString &Day::randomText(int column)
{
    static const QStringList steps{u"1"_s, u"0.1"_s, u"0.01"_s, u"0.001"_s};
    static const QStringList texts[] = {{u"1"_s, u"79"_s, u"160"_s, u"999"_s, u"1000"_s},
        {u"Name 7"_s, u"Torque boost"_s, u"x"_s, u"Buzzer [*] <b>"_s},
        {u"0-400"_s, u"0.5-30,9999"_s, u"7"_s, u"10-20,5-"_s}, {u"0"_s, u"1"_s}, steps, steps, steps,
        {u"%"_s, u"Hz"_s, u"kW"_s}, {u"0"_s, u"50"_s, u"1.5"_s, u"0.75"_s}, {u"0"_s, u"1001"_s, u"32767"_s},
        {u"000A"_s, u"FFFF"_s, u"8000"_s, u"0000"_s}, {u"0"_s, u"3"_s, u"9"_s},
        {QString(), u"79=1"_s, u"160=1-3"_s, u"160=9-10"_s, u"MODE/0"_s, u"OP/A1,79=1-3,10/5,MODE=1"_s}};
    static_assert(std::size(texts) == RowsModel::columnCount);
    return oneOf(texts[column - 1]);
}

const std::vector<Day::ActLine> &Day::acts()
{
    static const std::vector<ActLine> lines{{"click a cell", &Day::clickCell, 30},
        {"select a block", &Day::selectBlock, 40}, {"select rows", &Day::selectRows, 30},
        {"select rows upward", &Day::selectRowsUpward, 15}, {"type", &Day::typeText, 80},
        {"choose a step", &Day::chooseStep, 10}, {"toggle", &Day::toggle, 20}, {"press Delete", &Day::pressDelete, 15},
        {"press Escape", &Day::pressEscape, 15}, {"copy", &Day::copy, 60}, {"cut", &Day::cut, 20},
        {"paste", &Day::paste, 70}, {"add-paste", &Day::addPaste, 40}, {"add a line", &Day::addLine, 25},
        {"delete lines", &Day::deleteLines, 25}, {"undo", &Day::undo, 50}, {"redo", &Day::redo, 25},
        {"jump", &Day::jump, 20}, {"open", &Day::open, 40}, {"open a recent file", &Day::openRecent, 30},
        {"save", &Day::save, 50}, {"save by the button", &Day::saveByTool, 15}, {"save as", &Day::saveAs, 15},
        {"close", &Day::closeWindow, 25}, {"change the window", &Day::changeWindow, 50},
        {"exit", &Day::exitProgram, 12}, {"close the minimised frame", &Day::closeMinimised, 8},
        {"another program writes", &Day::writeByOthers, 10}, {"change the program", &Day::changeProgram, 50},
        {"minimise", &Day::minimise, 10}, {"foreign clipboard", &Day::takeForeignText, 20},
        {"fill the disk", &Day::fillDisk, 10}, {"make room", &Day::makeRoom, 12},
        {"refresh the recovery copies", &Day::refreshRecovery, 30}, {"kill", &Day::killProgram, 6},
        {"kill in a save", &Day::killInASave, 25}};
    return lines;
}
