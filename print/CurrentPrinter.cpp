#include "print/CurrentPrinter.h"

#include "desktop/Contrast.h"
#include "desktop/PlainMessages.h"
#include "desktop/PrintSetupDialog.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

namespace {

/// Deleted with the application: a printer must not outlive the platform's printing support.
class PrinterHolder : public QObject
{
public:
    using QObject::QObject;

    QPrinter printer{QPrinter::HighResolution};
};

QString unusedNameBeside(const QString &fileName)
{
    QString name = fileName;
    while (QFileInfo::exists(name)) {
        name += u'~';
    }
    return name;
}

/// The system's dialog asks before it returns the name of an existing file. But the set-up replaces no file, and the
/// user is asked when something is printed: so the dialog gets to see a name that is not in use.
class SetupDialog : public QPrintDialog
{
public:
    SetupDialog(QPrinter *printer, QWidget *parent) : QPrintDialog(printer, parent)
    {
        if (auto *buttons = findChild<QDialogButtonBox *>()) {
            connect(buttons, &QDialogButtonBox::clicked, this, &SetupDialog::hideName);
            connect(
                buttons, &QDialogButtonBox::accepted, this, &SetupDialog::bringBackName); // after the dialog's own slot
        }
    }

private:
    QLineEdit *nameField() const { return findChild<QLineEdit *>(QStringLiteral("filename")); }

    void hideName()
    {
        const QLineEdit *field = nameField();
        m_name = field && field->isEnabled() && QFileInfo(field->text()).isFile() ? field->text() : QString();
        if (!m_name.isEmpty()) {
            nameField()->setText(unusedNameBeside(m_name));
        }
    }

    void bringBackName()
    {
        if (m_name.isEmpty()) {
            return;
        }
        nameField()->setText(m_name);
        if (result() == Accepted) {
            printer()->setOutputFileName(m_name);
        }
    }

    QString m_name; ///< the name that the user typed, while it is hidden from the dialog
};

/// The system's dialog has a button to print; here it only accepts the choice.
void setButtonTexts(QPrintDialog &dialog, const QString &okText, const QString &cancelText)
{
    if (auto *buttons = dialog.findChild<QDialogButtonBox *>()) {
        const std::pair<QDialogButtonBox::StandardButton, QString> texts[] = {
            {QDialogButtonBox::Ok, okText}, {QDialogButtonBox::Cancel, cancelText}};
        for (const auto &[which, text] : texts) {
            if (QPushButton *button = buttons->button(which)) {
                button->setText(text);
            }
        }
    }
}

} // namespace

QPrinter &CurrentPrinter::printer()
{
    static QPointer<PrinterHolder> holder;
    if (!holder) {
        holder = new PrinterHolder(QCoreApplication::instance());
    }
    return holder->printer;
}

bool CurrentPrinter::isPresent()
{
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

QString CurrentPrinter::deviceName()
{
    return isPresent() ? printer().printerName() : QString();
}

void CurrentPrinter::showSetup(
    QWidget *parent, const QString &title, const QString &okText, const QString &cancelText, const QString &fileName)
{
    const bool toFile = !isPresent();
    const QString before = printer().outputFileName();
    const QString preset = before.isEmpty() ? fileName : before;
    if (toFile && !printSetupTakesFiles()) {
        const QString chosen = askForPdfName(parent, title, preset);
        printer().setOutputFileName(chosen.isEmpty() || chosen == preset ? before : chosen);
        return;
    }
    if (toFile) {
        printer().setOutputFileName(preset);
    }
    SetupDialog dialog(&printer(), parent);
    dialog.setWindowTitle(title);
    new PlainMessages(dialog);
    dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintCollateCopies);
    dialog.setOption(QAbstractPrintDialog::PrintToFile, toFile);
    setButtonTexts(dialog, okText, cancelText);
    showBoxesOf(dialog);
    const bool isAccepted = dialog.exec() == QDialog::Accepted;
    if (toFile && (!isAccepted || printer().outputFileName() == preset)) {
        printer().setOutputFileName(before);
    }
}

QString CurrentPrinter::takeChosenFile()
{
    if (isPresent()) {
        return {};
    }
    QString chosen = printer().outputFileName();
    printer().setOutputFileName({});
    return chosen;
}
