// The guide's first steps, walked key by key and click by click: what the page names is what is done here, in the same
// section, and leads to where the page says.

#include "app/services/Language.h"
#include "desktop/RibbonButton.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "storage/FileBackup.h"
#include "tests/guide/TourWalk.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QTreeView>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr int rows = 300;
constexpr int nameColumn = 2;

class Tour : public TourWalk, public testing::WithParamInterface<const char *>
{
protected:
    Tour() : TourWalk(TourPage::ofGuide(language(), u"first-steps.html"_s))
    {
        setCountryCode(language() == u"ja"_s ? 81 : 1);
    }

    static QString language() { return QString::fromLatin1(GetParam()); }

    void drop(const QString &file)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&frame(), &enter);
        QDropEvent dropped(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&frame(), &dropped);
    }
    void expectOpen(const QString &file)
    {
        EXPECT_EQ(editor().windowTitle(), file);
        EXPECT_EQ(grid().rowCount(), rows);
        EXPECT_EQ(control<QLabel>(frame(), u"lblPrcount"_s).text(), QString::number(rows));
        activateFrame();
        QTest::keyClick(&grid(), Qt::Key_F4, Qt::ControlModifier);
        EXPECT_EQ(frame().openEditors().size(), 1);
    }

    void openAFile();
    void findAParameter();
    void changeSomething();
    void save();
    void close();

    QString m_file; ///< the one that is open on the way
};

} // namespace

void Tour::openAFile()
{
    begin(1);
    m_file = writeFile(u"first.inv"_s, document(rows));
    writeFile(u"notes.txt"_s, "no parameters");
    start(u"first.inv"_s);
    expectOpen(m_file);
    EXPECT_TRUE(frame().isMaximized());
    ASSERT_EQ(frame().openEditors().size(), 1);
    name(editor().windowTitle());

    ModalScript script;
    script.then([this](QWidget &dialog) {
        const auto &files = *control<QTreeView>(dialog, u"treeView"_s).model();
        const auto shown = [&] {
            QStringList names;
            const QModelIndex folder = control<QTreeView>(dialog, u"treeView"_s).rootIndex();
            for (int row = 0; row < files.rowCount(folder); ++row) {
                names << files.index(row, 0, folder).data().toString();
            }
            return names;
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == QStringList{u"first.inv"_s}; }));
        auto &types = control<QComboBox>(dialog, u"fileTypeCombo"_s);
        expectText(types.itemText(0));
        QTest::keyClick(&types, Qt::Key_Home);
        EXPECT_TRUE(QTest::qWaitFor([&] { return shown().contains(u"notes.txt"_s); }));
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    choose(u"mneFile"_s, u"mneFileOpen"_s);
    activateFrame();
    script.thenFile(m_file);
    key(u"Ctrl+O"_s);
    expectOpen(m_file);
    activateFrame();
    drop(m_file);
    expectOpen(m_file);
    script.thenFile(m_file);
    clickTool(u"ssrbnOpen"_s);
    name(u"1000.svg"_s); // the button's picture
    EXPECT_EQ(editor().windowTitle(), m_file);
}

void Tour::findAParameter()
{
    begin(2);
    activateFrame();
    auto &box = control<QLineEdit>(frame(), u"txtPr"_s);
    QTest::mouseClick(&box, Qt::LeftButton);
    type(u"250"_s);
    key(u"Enter"_s);
    EXPECT_EQ(grid().activeRow(), 250);
    EXPECT_EQ(grid().topRow(), 250);
    key(u"Ctrl+G"_s);
    EXPECT_EQ(QApplication::focusWidget(), &box);
    type(u"7"_s);
    key(u"Enter"_s);
    EXPECT_EQ(grid().activeRow(), 7);

    const auto find = [this] {
        key(u"Ctrl+F"_s);
        type(u"eter 12"_s);
        EXPECT_EQ(grid().activeRow(), 12);
        EXPECT_EQ(grid().activeColumn(), nameColumn);
    };
    auto &field = control<QLineEdit>(editor(), u"txtFind"_s);
    find();
    key(u"Esc"_s);
    EXPECT_FALSE(field.isVisible());
    EXPECT_EQ(grid().activeRow(), 7);
    find();
    key(u"F3"_s);
    EXPECT_EQ(grid().activeRow(), 120);
    key(u"Esc"_s);
    EXPECT_EQ(grid().activeRow(), 120);
    key(u"Ctrl+F"_s);
    EXPECT_TRUE(field.isVisible());
    key(u"Tab"_s);
    EXPECT_FALSE(field.isVisible());
    EXPECT_EQ(grid().activeRow(), 120);
}

void Tour::changeSomething()
{
    begin(3);
    const int row = grid().activeRow();
    const auto cell = [&] { return grid().text(nameColumn, row); };
    click(nameColumn, row);
    type(u"new"_s);
    key(u"Enter"_s);
    EXPECT_EQ(cell(), u"new"_s);
    EXPECT_EQ(grid().textColour(nameColumn, row), QColor::fromRgba(changedCellColour));
    click(nameColumn, row);
    key(u"F2"_s);
    press(Qt::Key_End);
    type(u"er"_s);
    key(u"Enter"_s);
    EXPECT_EQ(cell(), u"newer"_s);
    click(nameColumn, row);
    type(u"dropped"_s);
    key(u"Esc"_s);
    EXPECT_EQ(cell(), u"newer"_s);
    key(u"Ctrl+Z"_s);
    EXPECT_EQ(cell(), u"new"_s);
    key(u"Ctrl+Z"_s);
    EXPECT_EQ(cell(), u"Parameter %1"_s.arg(row));
    key(u"Ctrl+Y"_s);
    EXPECT_EQ(cell(), u"new"_s);

    ModalScript script;
    for (const auto &[menu, command] : {std::pair(u"mneEdit"_s, u"mneEditFunc"_s),
             std::pair(u"mneEdit"_s, u"mneEditCond"_s), std::pair(u"mneVisual"_s, u"mneVisualInf"_s)}) {
        script.thenEscape();
        choose(menu, command);
        activateFrame();
    }
    EXPECT_EQ(script.asked(), 3);
    int hidden = 0;
    for (int column = 1; column <= grid().columnCount(); ++column) {
        if (grid().isColumnHidden(column - 1)) {
            ++hidden;
            expectText(grid().text(column, 0));
        }
    }
    EXPECT_EQ(hidden, 4);
}

void Tour::save()
{
    begin(4);
    EXPECT_EQ(readFile(m_file), document(rows));
    choose(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(m_file), document(rows).replace(",Parameter 120,", ",new,"));
    EXPECT_EQ(QDir(backupFolder(m_file)).entryList(QDir::Files).size(), 1);
    typeInto(nameColumn, 1, u"again"_s);
    key(u"Ctrl+S"_s);
    EXPECT_TRUE(readFile(m_file).contains(",again,"));
    activateFrame();
    ModalScript script;
    script.thenFile(path(u"second.inv"_s));
    choose(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_EQ(readFile(path(u"second.inv"_s)), readFile(m_file));
    EXPECT_EQ(editor().windowTitle(), path(u"second.inv"_s));
}

void Tour::close()
{
    begin(5);
    activateFrame();
    typeInto(nameColumn, 1, u"unsaved"_s);
    activateFrame();
    ModalScript script;
    const auto answer = [](const char16_t *button) {
        return [button](QWidget &question) {
            EXPECT_TRUE(qobject_cast<QMessageBox *>(&question));
            QTest::mouseClick(&control<QAbstractButton>(question, QString::fromUtf16(button)), Qt::LeftButton);
        };
    };
    script.then(answer(u"cmdCancel"));
    nameLine(u"mneFile"_s, u"mneFileClose"_s);
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    EXPECT_EQ(frame().openEditors().size(), 2);
    script.then(answer(u"cmdNo"));
    nameLine(u"mneFile"_s, u"mneFileExit"_s);
    activateFrame();
    chooseMenu(u"mneFile"_s, u"mneFileExit"_s);
    EXPECT_FALSE(frame().isVisible());
    EXPECT_FALSE(readFile(path(u"second.inv"_s)).contains("unsaved"));
    end();
}

TEST_P(Tour, leadsWhereThePageSays)
{
    ASSERT_EQ(page().sections(), 5);
    openAFile();
    findAParameter();
    changeSomething();
    save();
    close();
}

INSTANTIATE_TEST_SUITE_P(
    FirstSteps, Tour, testing::Values("en", "ja"), [](const auto &tested) { return std::string(tested.param); });
