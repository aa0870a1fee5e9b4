#include "platform/FileDialog.h"

#include "platform/PlainMessages.h"
#include "runtime/FileName.h"

#include <QDir>
#include <QFileDialog>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString ask(QFileDialog &dialog, const FileDialogSettings &settings)
{
    const QStringList filters = fileDialogFilters(settings.filter);
    dialog.setObjectName(u"dlgFile"_s);
    new PlainMessages(dialog);
    // The label already names its patterns.
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(filters.value(settings.filterIndex - 1));
    dialog.setDefaultSuffix(settings.defaultExtension);
    dialog.setDirectory(settings.folder);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    return QDir::toNativeSeparators(fileNameFromQt(dialog.selectedFiles().constFirst()));
}

} // namespace

QStringList fileDialogFilters(const QString &filter)
{
    QStringList filters;
    const QStringList parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        patterns.replaceInStrings(QRegularExpression(u"^\\*\\.\\*$"_s), u"*"_s);
        filters << parts[i] + " ("_L1 + patterns.join(u' ') + u')';
    }
    return filters;
}

QString askForFileToOpen(QWidget *parent, const FileDialogSettings &settings)
{
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return ask(dialog, settings);
}

QString askForFileToSave(QWidget *parent, const FileDialogSettings &settings)
{
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    return ask(dialog, settings);
}
