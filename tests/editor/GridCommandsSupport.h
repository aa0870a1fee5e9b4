#pragma once

#include "tests/support/FrameTest.h"

#include <QStringList>

/// A document of twelve parameters and what the commands of the Edit menu do with it.
class GridCommandsTest : public FrameTest
{
protected:
    void SetUp() override;

    static QString clipboard();
    void select(int column1, int row1, int column2, int row2);
    void selectRows(int row1, int row2);
    void selectCell(int column, int row);
    void clickRowNumber(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void edit(const QString &command);
    bool isEnabled(const QString &command);
    QStringList names();
    QString rowText(int row);
    bool isRed(int column, int row);
    bool isChanged();
    QString countLabel();
    static QString parameter(int number);
    static QString deleteAllQuestion(int rows);
};
