#pragma once

#include "dialogs/EditDialog.h"

#include <QStringList>

#include <array>

class QLabel;
class QLineEdit;

/// Asks for a new entry of a machine's capacity list.
class frmCap : public EditDialog
{
    Q_OBJECT

public:
    explicit frmCap(QWidget *parent = nullptr);

    /// Lets the user type a capacity in kW and a rated current in A. Returns true after OK, with values[0] the capacity
    /// and values[1] the current as they were typed; further entries, and all after Cancel, are left alone.
    bool ShowCapForm(QStringList &values);

    void accept() override;

private:
    void load();

    static constexpr int boxCount = 2;
    std::array<QLabel *, boxCount> m_labels{};
    std::array<QLineEdit *, boxCount> m_boxes{};
};
