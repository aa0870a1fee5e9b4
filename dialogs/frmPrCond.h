#pragma once

#include "dialogs/EditDialog.h"
#include "document/PrCondRows.h"

class DialogGrid;
class ParameterHeading;
class QGroupBox;
class QLayout;

/// Edits the read conditions of a parameter in three grids: on parameters, on the operation mode, on options.
class frmPrCond : public EditDialog
{
    Q_OBJECT

public:
    explicit frmPrCond(QWidget *parent = nullptr);
    ~frmPrCond() override;

    /// Lets the user edit the conditions condText of parameter pr, count being the row's shown number of them. Returns
    /// true when the user pressed OK and count or text are others now; else both are left alone. When OK finds no
    /// condition left, count becomes 0 and condText what this object made last (nothing if it never did).
    bool ShowPrCond(const QString &pr, qint16 &count, QString &condText);

    void accept() override;

private:
    /// The controls of one of the three frames.
    struct Kind
    {
        QGroupBox *frame;
        DialogGrid *grid;
        QPushButton *add;
        QPushButton *remove;
    };

    QLayout *createKinds();
    void createKind(int kind);
    void connectKind(int kind);

    void load(const QString &pr, const QList<PrCondition> &conditions);
    void loadTexts(const QString &pr);
    void loadGrid(int kind, const QList<QStringList> &rows);
    void addRow(int kind);
    void removeRow(int kind);
    void removeRows(int kind, int first, int last);
    void followFocus(const QWidget *focused);
    void giveAccessKeysTo(int kind);
    void sortParameters();
    void rebuild();

    ParameterHeading *m_heading;
    std::array<Kind, CondGridCount> m_kinds{};
    PrCondResult m_result; ///< lives on from one opening to the next
};
