#pragma once

#include "dialogs/EditDialog.h"

class DialogGrid;
class QLabel;
class SpreadGrid;

/// Chooses which data columns are shown, in every editor window. An empty choice is accepted.
class frmVisualInf : public EditDialog
{
    Q_OBJECT

public:
    /// Shows the columns of the grid shown; OK hides and shows those of all grids.
    frmVisualInf(const SpreadGrid &shown, const QList<SpreadGrid *> &grids, QWidget *parent);

    void accept() override;

private:
    void load(const SpreadGrid &shown);

    QList<SpreadGrid *> m_grids;
    QLabel *m_lblInf;
    DialogGrid *m_list;
};
