#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"
#include "tests/support/ThisSystem.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProxyStyle>
#include <QPushButton>
#include <QStyleOptionTitleBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

/// File names that a toolkit could take for something else. Not every system allows the later ones.
QList<QString> names()
{
    const QList<QString> anywhere{
        u"&lt;i&gt;italic&lt;&#47;i&gt;.inv"_s,
        u"a&b&&c.inv"_s,
        u"x[].inv"_s,
        u"%1 %2%%3.inv"_s,
        u"-flag --help.inv"_s,
        u"$HOME `id` ~.inv"_s,
    };
    const QList<QString> elsewhere{
        u"<b>bold.inv"_s,
        u"<img src='x'>&lt;.inv"_s,
        u"x[*].inv"_s,
        u"x[*][*]y.inv"_s,
        u"|1 |1.inv"_s,
        u"a\tb.inv"_s,
        u"a\\nb.inv"_s,
        u"qrc:a:resource.inv"_s,
    };
    return ThisSystem::allowsBarsInNames() ? anywhere + elsewhere : anywhere;
}

/// Keeps the text of the title bar that is painted.
class TitleReader : public QProxyStyle
{
public:
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
        const QWidget *widget) const override
    {
        if (const auto *bar = qstyleoption_cast<const QStyleOptionTitleBar *>(option)) {
            title = bar->text;
        }
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

    mutable QString title;
};

/// What a menu shows of a caption.
QString shownCaption(const QAction &entry)
{
    QString caption = entry.text();
    EXPECT_FALSE(caption.contains(u'\t'));
    caption.replace(u"&&"_s, u"\uE000"_s);
    EXPECT_FALSE(caption.contains(u'&')) << "an access key";
    return caption.replace(u'\uE000', u'&');
}

/// The labels of a window whose text would be shown as markup.
QStringList markedUp(const QWidget &window)
{
    QStringList found;
    for (const QLabel *label : window.findChildren<QLabel *>()) {
        const bool isRich = label->textFormat() == Qt::RichText || label->textFormat() == Qt::MarkdownText
            || (label->textFormat() == Qt::AutoText && Qt::mightBeRichText(label->text()));
        if (isRich) {
            found << label->objectName() + u'=' + label->text();
        }
    }
    return found;
}

} // namespace

class PlainName : public FrameTest, public testing::WithParamInterface<QString>
{
protected:
    void SetUp() override
    {
        start();
        file = QDir::currentPath() + u'/' + GetParam();
        QFile written(file);
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(document(2));
    }
    void open() { ASSERT_TRUE(frame().documents().OpenPrFile(file)); }
    QMdiSubWindow &window() { return dynamic_cast<QMdiSubWindow &>(*editor().parentWidget()); }
    QString oneLine() const { return QString(file).replace(u'\t', u' '); }

    QString file;
};

TEST_P(PlainName, standsInTheTitleOfItsWindow)
{
    open();
    auto *style = new TitleReader;
    style->setParent(&frame());
    window().setStyle(style);
    window().showNormal();
    window().resize(frame().width(), 200);
    window().grab();
    EXPECT_EQ(style->title, file);
}

TEST_P(PlainName, standsInTheTitleOfTheFrameWhenItsWindowIsMaximised)
{
    open();
    window().showMaximized();
    EXPECT_TRUE(frame().windowHandle()->title().contains(u'[' + file + u']'))
        << frame().windowHandle()->title().toStdString();
}

TEST_P(PlainName, standsInTheMenus)
{
    open();
    QAction &recent = menuCommand(u"mneFile"_s, u"mnuRecentFile(1)"_s);
    EXPECT_EQ(shownCaption(recent), oneLine());
    QMenu windows;
    frame().fillWindowList(windows);
    const QString caption = windows.actions().last()->text();
    ASSERT_TRUE(caption.startsWith(u"&2 "_s));
    QAction withoutKey(caption.mid(3));
    EXPECT_EQ(shownCaption(withoutKey), oneLine());
    recent.trigger();
    EXPECT_EQ(frame().openEditors().size(), 3) << "the entry opens the file";
}

TEST_P(PlainName, standsInMessages)
{
    open();
    editor().document().markChanged();
    ModalScript script;
    script.then([this](QWidget &box) {
        EXPECT_EQ(markedUp(box), QStringList());
        EXPECT_TRUE(dynamic_cast<QMessageBox &>(box).text().remove(u'\u200b').startsWith(file + u" is update."_s));
        QTest::mouseClick(&control<QPushButton>(box, u"cmdCancel"_s), Qt::LeftButton);
    });
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
    QFile::setPermissions(file, {});
    QDir(path(u"."_s)).remove(QFileInfo(file).fileName());
    QDir().mkdir(file);
    script.then([this](QWidget &box) {
        EXPECT_EQ(box.windowHandle()->title(), file);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
}

TEST_P(PlainName, standsInTheQuestionWhetherToReplaceIt)
{
    ModalScript script;
    script.thenFile(file).then([this](QWidget &box) {
        EXPECT_TRUE(dynamic_cast<QMessageBox &>(box).text().contains(QFileInfo(file).fileName()));
        EXPECT_EQ(markedUp(box), QStringList());
        QTest::keyClick(&box, Qt::Key_Escape);
        auto *dialog = qobject_cast<QDialog *>(box.parentWidget());
        ASSERT_NE(dialog, nullptr);
        QTimer::singleShot(0, dialog, &QDialog::reject);
    });
    chooseMenu(u"mneFile"_s, u"mneFileSaveAs"_s);
    EXPECT_EQ(readFile(file), document(2));
}

INSTANTIATE_TEST_SUITE_P(Names, PlainName, testing::ValuesIn(names()));

class PlainText : public FrameTest
{
protected:
    void SetUp() override { start(); }
};

TEST_F(PlainText, fromAFileStaysTextInGridAndDialogs)
{
    const QString markup = u"<b>7</b><img src=':/pictures/1000.svg'>"_s;
    QByteArray bytes = document(1);
    bytes.replace(",1,1001,Parameter 1,%,", ",<b>7</b><img src=':/pictures/1000.svg'>,1001,<h1>x</h1>,<i>u</i>,");
    bytes.replace("XT-200", "<h1>../../evil</h1>");
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, bytes)));
    EXPECT_EQ(grid().text(1, 1), markup);
    EXPECT_EQ(control<QLineEdit>(frame(), u"txtPr"_s).text(), markup);
    EXPECT_EQ(markedUp(frame()), QStringList());
    for (const QString &command : {u"mneEditInf"_s, u"mneEditFunc"_s, u"mneEditCond"_s}) {
        ModalScript script;
        script.then([](QWidget &dialog) {
            EXPECT_EQ(markedUp(dialog), QStringList());
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        chooseMenu(u"mneEdit"_s, command);
    }
}

TEST_F(PlainText, fromTheClipboardStaysText)
{
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(2))));
    auto *data = new QMimeData;
    data->setText(u"<b>x</b>&amp;../../etc"_s);
    data->setHtml(u"<table><tr><td>other</td></tr></table>"_s);
    QApplication::clipboard()->setMimeData(data);
    grid().setActiveCell(1, 1);
    editor().activate();
    chooseMenu(u"mneEdit"_s, u"mneEditPaste"_s);
    EXPECT_EQ(grid().text(1, 1), u"<b>x</b>&amp;../../etc"_s);
    EXPECT_EQ(markedUp(frame()), QStringList());
}

TEST_F(PlainText, fromTheSetUpFileStaysTextAndNamesNoFile)
{
    QDir(path(u"."_s)).mkpath(u"files/us"_s);
    writeFile(u"files/us/korvelin_e.ini"_s,
        "[Setup]\r\nLanguage=../jp/Japanese\r\n[UserInfomation]\r\n"
        "UserName=<b>A & B</b>\r\nUserCorp=../../../etc/passwd\r\n");
    start();
    EXPECT_EQ(frame().windowTitle(), u"Parameter File Editer"_s) << "an unknown language is none";
    ModalScript script;
    script.then([](QWidget &box) {
        EXPECT_EQ(control<QLabel>(box, u"lblName"_s).text(), u"<b>A & B</b>\n../../../etc/passwd"_s);
        EXPECT_EQ(markedUp(box), QStringList());
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    chooseMenu(u"mneHelp"_s, u"mneHelpVer"_s);
}

TEST_F(PlainText, ofALongNameWithoutBlanksIsShownWholeInAMessage)
{
    const QString file = path(QString(200, u'W') + u".inv"_s);
    ModalScript script;
    script.then([&](QWidget &window) {
        const auto &box = dynamic_cast<QMessageBox &>(window);
        EXPECT_EQ(box.text().remove(u'\u200b'), file + u" is update.\nSave?"_s);
        const auto &label = control<QLabel>(box, u"qt_msgbox_label"_s);
        EXPECT_LE(label.sizeHint().width(), label.width());
        const QRect needed = label.fontMetrics().boundingRect(
            QRect(0, 0, label.contentsRect().width(), 10000), Qt::TextWordWrap, label.text());
        EXPECT_LE(needed.width(), label.contentsRect().width());
        EXPECT_LE(needed.height(), label.contentsRect().height());
        EXPECT_LE(box.width(), box.screen()->availableGeometry().width());
        QTest::mouseClick(&control<QPushButton>(window, u"cmdNo"_s), Qt::LeftButton);
    });
    ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(QFileInfo(file).fileName(), document(2))));
    editor().document().markChanged();
    editor().parentWidget()->close();
    EXPECT_EQ(frame().openEditors().size(), 1);
}

TEST_F(PlainText, ofAnEndlessNameKeepsItsBeginningAndItsEnd)
{
    const QString file = u"/begin"_s + QString(9000, u'x') + u"end.inv"_s;
    ModalScript script;
    script.then([](QWidget &window) {
        const auto &box = dynamic_cast<QMessageBox &>(window);
        const QString text = box.text().remove(u'\u200b');
        EXPECT_TRUE(text.startsWith(u"/beginx"_s));
        EXPECT_TRUE(text.contains(u"xend.inv is update."_s));
        EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    editor().document().setPath(file);
    editor().document().markChanged();
    chooseMenu(u"mneFile"_s, u"mneFileClose"_s);
}
