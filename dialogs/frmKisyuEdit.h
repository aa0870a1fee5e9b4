#pragma once

#include "dialogs/EditDialog.h"
#include "document/MachineInfo.h"

class DialogGrid;
class QGroupBox;
class QLineEdit;

/// Edits a document's machine information, which OK writes back if the user changed anything.
class frmKisyuEdit : public EditDialog
{
    Q_OBJECT

public:
    frmKisyuEdit(QWidget *parent, MachineInfo &machine);

    /// Once it is closed: whether the machine information was written back.
    bool isChanged() const { return m_isWritten; }

    void accept() override;

private:
    QGroupBox *createFrame(const QString &name);
    template <typename Box>
    QLineEdit *createBox(QGroupBox &frame, const QString &name);
    void createTypeFrame();
    void createCapacityFrame();
    QPushButton *createButton(const QString &name, void (frmKisyuEdit::*onClick)());
    void layOutFrames();

    void load();
    void loadTexts();
    void loadBoxes(const MachineInfo &info);
    void loadCapacities(const MachineInfo &info);
    void setChanged() { m_changed = true; }
    void addCapacity();
    void deleteCapacity();
    void deleteCapacities(int first, int last);
    QLineEdit *firstInvalidBox() const;
    void collect(MachineInfo &info) const;
    void collectCapacities(MachineInfo &info) const;

    MachineInfo &m_machine;
    bool m_changed = false; ///< by the user, in the controls
    bool m_isWritten = false;
    QList<QGroupBox *> m_frames; ///< type, voltage, code, capacities, options
    QLineEdit *m_name;
    QLineEdit *m_type;
    QLineEdit *m_voltage;
    QLineEdit *m_code;
    DialogGrid *m_capacities;
    QPushButton *m_add;
    QPushButton *m_delete;
    QLineEdit *m_options;
};
