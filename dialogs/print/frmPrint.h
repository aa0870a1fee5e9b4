#pragma once

#include "dialogs/EditDialog.h"

#include <QFontMetrics>
#include <QString>

#include <array>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;
class SpreadGrid;

/// The print dialog. It stores what is to be printed in SharedPrintSettings.
class frmPrint : public EditDialog
{
    Q_OBJECT

public:
    /// caption is the caption of the editor window whose document is printed.
    explicit frmPrint(const QString &caption, QWidget *parent = nullptr);

    /// Ends an open edit of the grid and shows the dialog. result is true if the user pressed OK and chose something to
    /// print; SharedPrintSettings holds the choice then.
    void PrintShow(SpreadGrid &grid, bool &result);

    void accept() override;

private:
    void createControls();
    void setTexts();
    QLayout *createContents();
    QGroupBox *createRangeFrame();
    void connectControls();
    void setWidths(const QFontMetrics &metrics);
    void enableRange();
    void enablePages();
    void setUpPrinter();
    void storeChoice();
    int chosenOption() const;

    QString m_caption;
    QLabel *m_printerCaption = nullptr;
    QLabel *m_printerName = nullptr;
    std::array<QCheckBox *, 2> m_print{};
    QGroupBox *m_range = nullptr;
    std::array<QRadioButton *, 4> m_options{};
    std::array<QLineEdit *, 2> m_pages{};
    std::array<QLabel *, 2> m_pageLabels{};
    QPushButton *m_setup = nullptr;
    bool m_hasSelection = false;
};
