#pragma once

#include "dialogs/EditDialog.h"
#include "document/FuncCodeText.h"

class ParameterHeading;
class QCheckBox;
class QGroupBox;

/// Edits the functional list code of a parameter: a box for each function group, the code shown live.
class frmFunc : public EditDialog
{
    Q_OBJECT

public:
    explicit frmFunc(QWidget *parent = nullptr);

    /// Lets the user edit code, the code of parameter pr in the document filePath. Returns true when the user pressed
    /// OK and the code is another one now; else code is left alone. OK clears the bits that the document's label set
    /// (functionLabels()) has no group for.
    bool ShowFuncCode(const QString &pr, qint16 &code, const QString &filePath);

private:
    QWidget *createBoxes();

    void load(const QString &pr, qint16 code);
    void setCodeWidth();
    void loadBox(int group, bool ticked);
    void showCode(qint16 code);
    qint16 codeFromBoxes() const;

    FunctionLabels m_labels = FunctionLabels::Normal;
    ParameterHeading *m_heading;
    QGroupBox *m_frame;
    std::array<QCheckBox *, FunctionGroupCount> m_boxes{};
};
