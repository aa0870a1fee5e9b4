#pragma once

#include <QDialog>

class EditorFrame;
class QLabel;
class QPushButton;
class SpreadGrid;

/// Chooses which data columns are shown, in every editor window. An empty choice is accepted.
class frmVisualInf : public QDialog
{
    Q_OBJECT

public:
    /// Shows the columns of the frame's active editor window, which must exist.
    frmVisualInf(EditorFrame &frame, QWidget *parent);

private:
    void build();
    void load();
    void applyAndClose();

    EditorFrame &m_frame;
    QLabel *m_lblInf;
    SpreadGrid *m_grid;
    QPushButton *m_cmdOK;
    QPushButton *m_cmdCancel;
};
