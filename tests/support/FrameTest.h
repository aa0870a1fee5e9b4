#pragma once

#include "app/MDIfrmTabrix.h"
#include "tests/support/Controls.h"
#include "tests/support/ModalScript.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <memory>

class RibbonButton;
class SpreadGrid;
class frmPrFile;

/// A running frame with empty settings, an empty clipboard and a folder of its own, in English unless told otherwise.
class FrameTest : public testing::Test
{
protected:
    FrameTest();
    ~FrameTest() override;

    /// Starts the program with that command line.
    void start(const QString &commandLine = {});
    /// Ends it without a question and without a trace in the document tables.
    void stop();

    MDIfrmTabrix &frame() { return *m_frame; }
    frmPrFile &editor() { return *m_frame->activeEditor(); }
    SpreadGrid &grid();
    /// The document number of the active editor window.
    int docNo();

    /// Writes a file into the test's folder and returns its full path.
    QString writeFile(const QString &name, const QByteArray &bytes);
    QByteArray readFile(const QString &path);
    /// The full path of that name in the test's folder, as the system writes it.
    QString path(const QString &name) const { return QDir::toNativeSeparators(m_folder.filePath(name)); }
    /// The bytes of a document with that many parameters, numbered from 1, named "Parameter 1" and so on.
    static QByteArray document(int rows);

    /// Chooses a command by mouse from the menu bar, e.g. chooseMenu("mneFile", "mneFileOpen").
    void chooseMenu(const QString &menu, const QString &command);
    QMenu &menuInBar(const QString &name);
    QAction &menuCommand(const QString &menu, const QString &command);
    RibbonButton &toolButton(const QString &name);
    void clickTool(const QString &name);
    /// A menu or a message box that has just gone may still count as the active window; then no command hears its key.
    void activateFrame();
    /// Types a text into a cell by keyboard and ends with Enter.
    void typeInto(int column, int row, const QString &text);
    static void pressKey(QWidget &widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// A key for whatever has the focus, as the window system sends it.
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

private:
    QTemporaryDir m_folder;
    QString m_formerFolder;
    std::unique_ptr<MDIfrmTabrix> m_frame;
};
