#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class SpreadGrid;

/// Chooses which data columns are shown, in every editor window. An empty choice is accepted.
class frmVisualInf : public QDialog
{
    Q_OBJECT

public:
    /// Shows the columns of the grid shown; OK hides and shows those of all grids.
    frmVisualInf(const SpreadGrid &shown, const QList<SpreadGrid *> &grids, QWidget *parent);

private:
    void build();
    void load(const SpreadGrid &shown);
    void applyAndClose();

    QList<SpreadGrid *> m_grids;
    QLabel *m_lblInf;
    SpreadGrid *m_list;
    QPushButton *m_cmdOK;
    QPushButton *m_cmdCancel;
};
