#include "editor/frmPrFile.h"
#include "tests/reliability/FaultTest.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QTest>

#include <functional>
#include <ostream>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/// What stands under a name that is opened.
struct Obstacle
{
    const char *name;
    QString reason;
    std::function<void(const QString &file)> make;
};

void PrintTo(const Obstacle &obstacle, std::ostream *out)
{
    *out << obstacle.name;
}

const Obstacle obstacles[] = {
    {"Nothing", u"No such file or directory"_s, [](const QString &) {}},
    {"AFolder", u"Is a directory"_s, [](const QString &file) { ASSERT_TRUE(QDir().mkdir(file)); }},
    {"AFileWithoutRights", u"Permission denied"_s,
        [](const QString &file) {
            QFile created(file);
            ASSERT_TRUE(created.open(QIODevice::WriteOnly));
            ASSERT_TRUE(created.setPermissions({}));
        }},
    {"ALinkToItself", u"Too many levels of symbolic links"_s,
        [](const QString &file) { ASSERT_TRUE(QFile::link(file, file)); }},
    {"ALinkIntoNowhere", u"No such file or directory"_s,
        [](const QString &file) { ASSERT_TRUE(QFile::link(u"/nowhere/b.inv"_s, file)); }},
    {"APipe", u"This is a pipe, a socket or a device. Only files can be opened and saved."_s,
        [](const QString &file) { ASSERT_EQ(::mkfifo(QFile::encodeName(file).constData(), 0600), 0); }},
    {"ADeviceWithoutEnd", u"This is a pipe, a socket or a device. Only files can be opened and saved."_s,
        [](const QString &file) { ASSERT_TRUE(QFile::link(u"/dev/zero"_s, file)); }},
    {"AFileOfThreeGigabytes", u"The file is too large. Files of more than 256 MB cannot be opened."_s,
        [](const QString &file) {
            QFile created(file);
            ASSERT_TRUE(created.open(QIODevice::WriteOnly));
            ASSERT_TRUE(created.resize(qint64(3) << 30)); // without a block on the disk
        }},
};

class FailingOpen : public FaultTest, public testing::WithParamInterface<Obstacle>
{
};

} // namespace

TEST_P(FailingOpen, isToldAndLeavesTheOtherDocumentsAlone)
{
    const QString name = path(u"work/b.inv"_s);
    GetParam().make(name);
    frmPrFile *const former = &editor();
    ModalScript script;
    script.then([&](QWidget &window) {
        const auto *box = qobject_cast<QMessageBox *>(&window);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), GetParam().reason);
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->windowTitle(), name);
        QTest::keyClick(&window, Qt::Key_Return);
    });
    EXPECT_FALSE(frame().documents().OpenPrFile(name));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(&editor(), former);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_EQ(readFile(file), changed);
}

INSTANTIATE_TEST_SUITE_P(Obstacles, FailingOpen, testing::ValuesIn(obstacles),
    [](const auto &test) { return std::string(test.param.name); });
