#pragma once

#include "document/DocumentTables.h"

#include <gtest/gtest.h>

#include <Qt>

#include <functional>

class QLineEdit;
class SpreadGrid;
class frmKisyuEdit;

/// The machine of the document in most tests.
MachineInfo sampleMachine();

/// The machine dialog on a document of several that has that machine.
class MachineDialog : public testing::Test
{
protected:
    static constexpr int docNo = 2;

    void SetUp() override;

    /// Opens a dialog on the document, runs act in it and returns whether the document counts as changed.
    bool show(const std::function<void()> &act);

    static MachineInfo &info();
    QLineEdit &box(const QString &name);
    SpreadGrid &grid();
    QStringList rows();
    void ok();
    void cancel();

    /// Clicks into the box and replaces its text by typing.
    void retype(const QString &name, const QString &text);

    /// Adds a capacity through the dialog that Add opens; OK there unless cancelled.
    void add(const QString &capacity, const QString &current, Qt::Key end = Qt::Key_Return);

    frmKisyuEdit *dialog = nullptr;
};
