#include "desktop/RefusedInput.h"

#include "desktop/Contrast.h"

#include <QApplication>
#include <QPalette>
#include <QTimer>
#include <QToolTip>
#include <QWidget>

#include <chrono>

using namespace std::chrono_literals;

namespace {

constexpr auto markTime = 400ms;

std::function<QString(const CellType &)> &wordingInUse()
{
    static std::function<QString(const CellType &)> wording;
    return wording;
}

/// Turns the editor's background red for a moment.
void mark(QWidget &editor)
{
    QPalette marked = editor.palette();
    const QPalette unmarked = QApplication::palette(&editor);
    marked.setColor(QPalette::Base, tinted(unmarked.color(QPalette::Base), Qt::red));
    editor.setPalette(marked);
    QTimer::singleShot(markTime, &editor, [&editor] { editor.setPalette(QPalette()); });
}

} // namespace

void RefusedInput::setWording(std::function<QString(const CellType &)> wording)
{
    wordingInUse() = std::move(wording);
}

void RefusedInput::show(QWidget &editor, const CellType &type)
{
    QApplication::beep();
    mark(editor);
    const QString tip = wordingInUse() ? wordingInUse()(type) : QString();
    QToolTip::showText(editor.mapToGlobal(editor.rect().bottomLeft()), tip, &editor);
}
