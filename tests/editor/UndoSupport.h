#pragma once

#include "tests/support/FrameTest.h"

#include <QRgb>
#include <QString>

#include <iosfwd>
#include <vector>

struct GridBlock;

/// All that an act may change of a document and what shows it.
struct Shown
{
    QString texts;
    std::vector<QRgb> colours; ///< 0 for none
    std::vector<int> heights;
    QString countLabel;
    int parameters = 0;
    bool changed = false;

    bool operator==(const Shown &) const = default;
};

void PrintTo(const Shown &shown, std::ostream *out);

/// A document in which things are done, undone and redone, all by keys and mouse.
class UndoTest : public FrameTest
{
public:
    void open(int rows);

    Shown shown();
    bool isChanged();
    void undo();
    void redo();
    void copy(const GridBlock &block);
    void paste();
    void save();
    void selectCell(int column, int row);

    // The acts
    void type();
    void pressDelete();
    void cut();
    void pasteForeignText();
    void pasteBlock();
    void pasteRows();
    void addPaste();
    void addLine();
    void deleteLines();
    void deleteLastLines();
    void toggleByKey();
    void toggleByMouse();
    void chooseFromList();
    void editFuncCode();
    void editConditions();
};
