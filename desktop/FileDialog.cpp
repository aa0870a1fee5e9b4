#include "desktop/FileDialog.h"

#include "desktop/PlainMessages.h"
#include "desktop/ScreenFit.h"
#include "runtime/FileName.h"

#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLayout>
#include <QLineEdit>
#include <QListView>
#include <QLocale>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSplitter>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int shownFiles = 16;

/// Fits the columns to the widest names, sizes, types and dates that are usual. Wider columns stay as the user made
/// them.
void widenColumns(QTreeView &list)
{
    const QDateTime latest({2028, 12, 28}, {22, 58, 58});
    const QLocale locale = QLocale::system();
    const QString widest[] = {QString(28, u'n'), locale.formattedDataSize(1023LL * 1024 * 1024),
        u"plain text document"_s, locale.toString(latest, QLocale::ShortFormat)};
    const int margins = 3 * list.fontMetrics().averageCharWidth();
    for (int column = 0; column < int(std::size(widest)); ++column) {
        const int needed = list.fontMetrics().horizontalAdvance(widest[column]) + margins;
        const int heading = list.header()->sectionSizeHint(column);
        list.header()->resizeSection(column, std::max({needed, heading, list.header()->sectionSize(column)}));
    }
}

/// Width of the list of folders beside the files.
int placesWidth(const QWidget &places)
{
    const auto *list = qobject_cast<const QListView *>(&places);
    const int entries = list ? list->sizeHintForColumn(0) + 2 * list->frameWidth() : 0;
    return std::max(places.sizeHint().width(), entries);
}

/// Presets the name without selecting its file in the list: Qt's own dialog prefers what is selected there to what is
/// in the name box.
void presetName(QFileDialog &dialog, const QString &name)
{
    dialog.selectFile(name);
    auto *box = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
    auto *list = dialog.findChild<QListView *>(u"listView"_s);
    if (box && list) { // the desktop's own dialog has neither
        list->selectionModel()->clear();
        box->selectAll();
    }
}

/// Has a file without an extension opened, as the desktop's own dialogs do, unless there is one with it: Qt's own
/// dialog would look for the latter only.
void findWithoutExtension(QFileDialog &dialog)
{
    auto *box = dialog.findChild<QLineEdit *>(u"fileNameEdit"_s);
    if (!box) { // the desktop's own dialog
        return;
    }
    const QString extension = dialog.defaultSuffix();
    QObject::connect(box, &QLineEdit::textChanged, &dialog, [&dialog, extension](const QString &name) {
        const QString asTyped = dialog.directory().filePath(name);
        const bool isAsTyped = QFileInfo(asTyped).isFile() && !QFileInfo(asTyped + u'.' + extension).isFile();
        dialog.setDefaultSuffix(isAsTyped ? QString() : extension);
    });
}

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
    if (dialog.acceptMode() == QFileDialog::AcceptOpen) {
        findWithoutExtension(dialog);
    }
    dialog.setDirectory(settings.folder);
    if (!settings.fileName.isEmpty()) {
        presetName(dialog, settings.fileName);
    }
    widenForColumns(dialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return {};
    }
    return QDir::toNativeSeparators(fileNameFromQt(dialog.selectedFiles().constFirst()));
}

} // namespace

void widenForColumns(QFileDialog &dialog)
{
    auto *list = dialog.findChild<QTreeView *>(u"treeView"_s);
    auto *splitter = dialog.findChild<QSplitter *>(u"splitter"_s);
    if (!list || !splitter) {
        return;
    }
    dialog.ensurePolished();
    widenColumns(*list);
    const int places = placesWidth(*splitter->widget(0));
    const int files = list->header()->length() + list->verticalScrollBar()->sizeHint().width() + 2 * list->frameWidth();
    const QMargins margins = dialog.layout()->contentsMargins();
    const int width = places + splitter->handleWidth() + files + margins.left() + margins.right();
    const int height = dialog.sizeHint().height() - list->sizeHint().height()
        + shownFiles * (list->fontMetrics().height() + list->fontMetrics().leading());
    const QSize available = maxSizeOnScreen(dialog);
    const int missing = std::max(width - available.width(), 0); // the list of folders gives way to the files
    splitter->setSizes({std::max(places - missing, places / 2), files});
    dialog.resize(QSize(width, height).expandedTo(dialog.sizeHint()).boundedTo(available));
}

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
