#include "app/services/Common.h"

#include "app/services/Language.h"
#include "app/services/Messages.h"
#include "app/services/Settings.h"
#include "desktop/MessageBox.h"
#include "desktop/ScreenFit.h"
#include "grid/SpreadGrid.h"
#include "grid/cells/CellType.h"
#include "help/HelpWindow.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QLayout>
#include <QLineEdit>
#include <QMenu>
#include <QScreen>

namespace {

/// The sizes that the font dialog offers; anything else in the settings store is damage.
constexpr float minFont = 1;
constexpr float maxFont = 512;
constexpr float defaultFont = 12;

/// The dialog's inner size as it will be shown.
QSize innerSize(QDialog &dialog)
{
    dialog.ensurePolished();
    if (dialog.layout()) {
        dialog.layout()->activate();
    }
    if (!dialog.testAttribute(Qt::WA_Resized)) {
        dialog.adjustSize();
        dialog.setAttribute(Qt::WA_Resized, false); // stays free to follow its content
    }
    return dialog.size();
}

void applyFont(QWidget &control, const QFont &font);

void applyFontToChildren(QWidget &parent, const QFont &font)
{
    for (QObject *child : parent.children()) {
        auto *control = qobject_cast<QWidget *>(child);
        // A menu has no font of its own, and another dialog prepares itself.
        if (control && !qobject_cast<QDialog *>(control) && !qobject_cast<QMenu *>(control)) {
            applyFont(*control, font);
        }
    }
}

void applyFont(QWidget &control, const QFont &font)
{
    if (auto *grid = qobject_cast<SpreadGrid *>(&control)) {
        grid->setGridFont(font);
        return;
    }
    control.setFont(font);
    applyFontToChildren(control, font);
}

/// What is wrong with a file that could not be shown as help.
QString fileError(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? ownText(OwnText::NotAHelpFile) : file.errorString();
}

} // namespace

QString limitText(const CellType &type)
{
    switch (type.kind) {
    case CellType::Kind::Integer:
        return ownText(OwnText::WholeNumberLimits, {QString::number(type.minimum), QString::number(type.maximum)});
    case CellType::Kind::Float:
        return ownText(OwnText::NumberLimits, {QString::number(type.minimum), QString::number(type.maximum)});
    case CellType::Kind::Text:
        return type.maxLength > 0 ? ownText(OwnText::TextLimit, {QString::number(type.maxLength)}) : QString();
    case CellType::Kind::CheckBox:
    case CellType::Kind::ComboBox:
        break;
    }
    return {};
}

QFont userFont()
{
    QFont font;
    // A list, so that commas in the name part nothing. If the font is not installed, that of the window is shown, and
    // not whatever comes first: a serif face, on Windows.
    font.setFamilies({UserFont.FontName, QApplication::font().family()});
    const bool usable = UserFont.FontSize >= minFont && UserFont.FontSize <= maxFont;
    font.setPointSizeF(usable ? UserFont.FontSize : defaultFont);
    font.setItalic(UserFont.FontItalic);
    font.setBold(UserFont.FontBold);
    return font;
}

void PrepareDialog(QDialog &dialog)
{
    ApplyUserFont(dialog); // first, because the inner size depends on it
    const QWidget *parent = dialog.parentWidget();
    const QRect screen = (parent ? parent->screen() : dialog.screen())->geometry();
    const QSize inner = innerSize(dialog);
    const QPoint middle(
        screen.x() + screen.width() / 2 - inner.width() / 2, screen.y() + screen.height() / 2 - inner.height() / 2);
    dialog.move(positionOnScreen(dialog, middle, inner));
}

void ApplyUserFont(QWidget &window)
{
    applyFontToChildren(window, userFont());
}

void SelectAllText(QLineEdit &textBox)
{
    textBox.selectAll();
}

void ShowHelp(QWidget *window, int contextId)
{
    HelpWindow::setFont(userFont());
    if (!HelpWindow::showTopic(HelpFilePath, contextId, window)) {
        const QString text = QDir::toNativeSeparators(HelpFilePath) + u'\n' + fileError(HelpFilePath);
        MessageBox::showExclamation(window, text, ResString(Text::ProgramName));
    }
}
