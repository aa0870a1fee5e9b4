#pragma once

#include "dialogs/frmPrCond.h"

#include <gtest/gtest.h>

#include <functional>

class SpreadGrid;

/// A dialog with what a call of it gave.
class CondDialog : public testing::Test
{
protected:
    /// Conditions of every kind, in the order in which the dialog writes them.
    static const QString mixedText;

    void SetUp() override;

    /// Opens the dialog on a text and its count, runs act in it and returns its result.
    bool show(const QString &openedText, qint16 openedCount, const std::function<void()> &act,
        const QString &pr = QStringLiteral("79"));

    SpreadGrid &grid(int kind);
    QStringList rows(int kind);
    QString label(const QString &name);
    bool canDelete(int kind);
    void add(int kind);
    void remove(int kind);
    void ok();
    void cancel();

    frmPrCond dialog;
    qint16 count = 0;
    QString text;
};
