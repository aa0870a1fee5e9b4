#pragma once

#include <QString>
#include <QStringList>

class QFileDialog;
class QWidget;

/// What a file dialog opens with.
struct FileDialogSettings
{
    QString defaultExtension; ///< appended to a typed name that has none
    QString filter; ///< "label|patterns|label|patterns", patterns separated by ";"
    int filterIndex = 1; ///< the preselected pair, from 1
    QString folder;
    QString fileName = {}; ///< the preset name, selected so that typing replaces it; empty for none
};

/// The filter pairs in the form of Qt's dialog. Labels stay as they are; "*.*" matches every name.
QStringList fileDialogFilters(const QString &filter);

/// Makes the dialog as large as the columns of its list need, but not larger than the screen. Does nothing to a dialog
/// of the desktop's own.
void widenForColumns(QFileDialog &dialog);

/// The full path of the existing file that the user chose; empty if the dialog was cancelled.
QString askForFileToOpen(QWidget *parent, const FileDialogSettings &settings);

/// The full path that the user chose to save to; empty if the dialog was cancelled. The dialog asks before it returns
/// the name of an existing file.
QString askForFileToSave(QWidget *parent, const FileDialogSettings &settings);
