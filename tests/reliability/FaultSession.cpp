#include "tests/reliability/FaultSession.h"

#include "app/MDIfrmTabrix.h"
#include "app/services/Language.h"
#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/AnsiText.h"
#include "runtime/Country.h"
#include "tests/reliability/FaultDisk.h"
#include "tests/reliability/FaultReader.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTest>

#include <dlfcn.h>
#include <memory>
#include <stdexcept>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int nameColumn = 2;

/// One run of the program with its user.
class Run
{
public:
    Run(const SessionPlace &place, FaultPlan &plan, SessionReport &report)
        : m_place(place), m_plan(plan), m_report(report), m_reader(report)
    {
    }

    void prepare();
    [[noreturn]] void abandon();
    void save();
    void closeFrame();
    void start();
    [[noreturn]] void recover();
    void resume();

private:
    QString fileName() const { return QString::fromStdString(m_place.file()); }
    void remark(const QString &line) { addLine(m_report.remarks, line); }
    void remark(const std::string &line)
    {
        if (!line.empty()) {
            remark(QString::fromStdString(line));
        }
    }

    void begin(const QString &commandLine)
    {
        m_frame = std::make_unique<MDIfrmTabrix>();
        m_frame->load(commandLine);
    }
    void show()
    {
        m_frame->show();
        m_frame->activateWindow();
        if (!QTest::qWaitForWindowActive(m_frame.get())) {
            remark(u"the window does not become active"_s);
        }
    }
    frmPrFile *editorOf(const QString &title) const
    {
        const QList<frmPrFile *> editors = m_frame->openEditors();
        const auto found = std::ranges::find(editors, title, &QWidget::windowTitle);
        return found != editors.end() ? *found : nullptr;
    }
    /// The window of the file; a recovered one before one that was just opened.
    frmPrFile *fileEditor() const
    {
        frmPrFile *found = nullptr;
        for (frmPrFile *editor : m_frame->openEditors()) {
            if (editor->windowTitle() == fileName() && (!found || isChanged(*editor))) {
                found = editor;
            }
        }
        return found;
    }
    static bool isChanged(const frmPrFile &editor) { return DocFlags[editor.document().number()].changed; }
    void activate(frmPrFile &editor)
    {
        m_frame->activateWindow();
        QTest::qWait(0);
        m_frame->makeActive(editor);
        editor.vaspdParam().setFocus();
    }
    void type(frmPrFile &editor, const QString &text)
    {
        activate(editor);
        SpreadGrid &grid = editor.vaspdParam();
        grid.setActiveCell(nameColumn, 1);
        QTest::keyClick(&grid, Qt::Key_F2);
        QWidget *cell = QApplication::focusWidget();
        QTest::keyClick(cell, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(cell, text);
        QTest::keyClick(cell, Qt::Key_Return);
        if (grid.text(nameColumn, 1) != text) {
            remark(u"the typed text is not in the grid"_s);
        }
    }
    void pressSave(frmPrFile &editor)
    {
        activate(editor);
        QTest::keyClick(&editor.vaspdParam(), Qt::Key_S, Qt::ControlModifier);
    }
    void openAndChange()
    {
        begin(fileName());
        show();
        if (frmPrFile *editor = editorOf(fileName())) {
            type(*editor, QString::fromLatin1(newName));
        } else {
            remark(u"the file was not opened"_s);
        }
    }

    void arm() { m_plan.armed = true; }
    void disarm() { m_plan.armed = false; }
    void keepCopy()
    {
        const frmPrFile *editor = fileEditor();
        const bool isKept = editor && m_frame->recovery().keep(*editor);
        const bool wasArmed = m_plan.armed.exchange(false);
        if (isKept && wasWaitRefused(m_plan, "/recovery/")) {
            remark(u"a copy counts as written that the disk has not confirmed"_s);
        }
        m_report.hasCopy = FaultDisk::isInRecovery(m_place, newName);
        m_plan.armed = wasArmed;
    }
    void checkSaved(const frmPrFile *editor);
    void trySavingAgain();
    void checkRecovered();

    const SessionPlace &m_place;
    FaultPlan &m_plan;
    SessionReport &m_report;
    FaultReader m_reader;
    std::unique_ptr<MDIfrmTabrix> m_frame;
};

/// What a save left when the program says that it is one.
void Run::checkSaved(const frmPrFile *editor)
{
    m_report.failed = !editor || isChanged(*editor);
    if (!m_report.failed && FaultDisk::content(m_place.file()) != m_place.changed) {
        remark(u"the window says saved, the file has not the new content"_s);
    }
    remark(FaultDisk::faultOfFile(m_place));
}

void Run::trySavingAgain()
{
    frmPrFile *editor = fileEditor();
    if (!editor) {
        return;
    }
    if (isChanged(*editor)) {
        pressSave(*editor);
    }
    if (isChanged(*editor) || FaultDisk::content(m_place.file()) != m_place.changed) {
        remark(u"the second try does not save"_s);
    }
    remark(FaultDisk::faultOfFile(m_place));
}

void Run::prepare()
{
    constexpr int saves = 11;
    begin(fileName());
    show();
    for (int i = 1; i <= saves; ++i) {
        type(*fileEditor(), u"Version %1"_s.arg(i));
        pressSave(*fileEditor());
    }
    m_frame->close();
}

void Run::abandon()
{
    openAndChange();
    for (frmPrFile *editor : m_frame->openEditors()) {
        if (editor->windowTitle() != fileName()) {
            type(*editor, QString::fromLatin1(untitledWork));
        }
    }
    m_frame->recovery().refresh();
    ::_exit(0);
}

void Run::save()
{
    openAndChange();
    arm();
    keepCopy();
    if (frmPrFile *editor = fileEditor()) {
        pressSave(*editor);
    }
    disarm();
    checkSaved(fileEditor());
    m_report.isDone = true;
    trySavingAgain();
    m_frame->close();
}

void Run::closeFrame()
{
    openAndChange();
    keepCopy();
    arm();
    m_frame->close();
    disarm();
    const frmPrFile *left = fileEditor();
    m_report.staysOpen = left != nullptr;
    m_report.failed = FaultDisk::content(m_place.file()) != m_place.changed;
    if (m_report.failed && !left && !FaultDisk::isInRecovery(m_place, newName)) {
        remark(u"the window is gone, and the work is nowhere"_s);
    }
    remark(FaultDisk::faultOfFile(m_place));
    m_report.isDone = true;
    if (left) {
        trySavingAgain();
        m_frame->close();
    }
}

void Run::start()
{
    arm();
    begin(fileName());
    disarm();
    show();
    m_report.failed = !fileEditor();
    m_report.isDone = true;
    if (!fileEditor() && (!m_frame->documents().OpenPrFile(fileName()) || !fileEditor())) {
        remark(u"the second try does not open the file"_s);
    }
    m_report.isDone = false;
    arm();
    m_frame->close();
    disarm();
    m_report.isDone = true;
}

/// What a crash left is in a window, or still on the disk.
void Run::checkRecovered()
{
    const frmPrFile *editor = fileEditor();
    const bool isShown = editor && editor->vaspdParam().text(nameColumn, 1) == QString::fromLatin1(newName);
    if (!isShown && !FaultDisk::isInRecovery(m_place, newName)) {
        remark(u"the file's work is neither in a window nor in a recovery copy"_s);
    }
    if (!FaultDisk::isInRecovery(m_place, untitledWork)) {
        remark(u"the untitled work is in no recovery copy"_s);
    }
    m_report.failed = !isShown;
}

void Run::recover()
{
    arm();
    begin({});
    disarm();
    show();
    checkRecovered();
    arm();
    if (frmPrFile *editor = fileEditor()) {
        pressSave(*editor);
        disarm();
        checkSaved(editor);
    }
    disarm();
    m_report.isDone = true;
    trySavingAgain();
    m_report.isOver = true;
    ::_exit(0); // the user sees power fail: the untitled document waits for the next start
}

void Run::resume()
{
    begin(fileName());
    show();
    if (!fileEditor()) {
        remark(u"the next start does not open the file"_s);
    } else if (isChanged(*fileEditor())) {
        pressSave(*fileEditor());
    }
    for (const frmPrFile *editor : m_frame->openEditors()) {
        if (editor->windowTitle() != fileName() && isChanged(*editor)) {
            m_report.hasCopy = editor->vaspdParam().text(nameColumn, 1) == QString::fromLatin1(untitledWork);
        }
    }
    m_reader.answerToSave(QMessageBox::No);
    m_frame->close();
}

void enterPlace(const SessionPlace &place)
{
    qputenv("HOME", place.folder.c_str());
    qputenv("XDG_DATA_HOME", place.data().c_str());
    qputenv("XDG_CONFIG_HOME", place.config().c_str());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QString::fromStdString(place.config()));
    ::alarm(120); // whoever started this is gone
    if (::chdir(place.folder.c_str()) != 0) {
        ::_exit(3);
    }
}

void act(Session session, Run &run)
{
    switch (session) {
    case Session::Prepare:
        return run.prepare();
    case Session::Abandon:
        run.abandon();
    case Session::Save:
        return run.save();
    case Session::Close:
        return run.closeFrame();
    case Session::Start:
        return run.start();
    case Session::Recover:
        run.recover();
    case Session::Resume:
        return run.resume();
    }
}

} // namespace

void followPlan(FaultPlan *plan)
{
    if (const auto set = reinterpret_cast<SetFaultPlan>(::dlsym(RTLD_DEFAULT, setFaultPlanName))) {
        set(plan);
    }
}

std::unique_ptr<QApplication> makeSessionApplication()
{
    static int count = 1;
    static std::array<char, 7> name = {"Tabrix"};
    static std::array<char *, 2> arguments = {name.data(), nullptr};
    auto application = std::make_unique<QApplication>(count, arguments.data());
    QApplication::setApplicationName(u"Tabrix"_s);
    setCountryCode(1);
    setAnsiCodePageNumber(1252);
    QLineEdit warmth(u"fonts and style"_s);
    warmth.show();
    QApplication::processEvents();
    const auto threads = QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    if (threads.size() != 1) {
        throw std::runtime_error("a process with several threads cannot be forked");
    }
    return application;
}

void runSession(Session session, const SessionPlace &place, FaultPlan &plan, SessionReport &report)
{
    enterPlace(place);
    setProgramFolder(QString::fromStdString(place.folder));
    followPlan(&plan);
    {
        Run run(place, plan, report);
        act(session, run);
    }
    report.isOver = true;
    ::_exit(0);
}
