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
    QString fileName = {}; ///< what the name is preset to, to be typed over; empty for nothing
};

/// The filter pairs in the form of Qt's dialog: labels shown as they stand, "*.*" matching every name.
QStringList fileDialogFilters(const QString &filter);

/// Makes the dialog large enough for the columns of its list, as far as the screen has room. The desktop's own dialog,
/// if it is one, is left alone.
void widenForColumns(QFileDialog &dialog);

/// The full path of the existing file that the user chose; empty when the dialog was cancelled.
QString askForFileToOpen(QWidget *parent, const FileDialogSettings &settings);

/// The full path that the user chose to save under, after the question whether an existing file may be replaced; empty
/// when the dialog was cancelled.
QString askForFileToSave(QWidget *parent, const FileDialogSettings &settings);
