#include "tests/accessibility/ControlWalk.h"

#include "tests/support/ContrastRatio.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QColor>
#include <QHash>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isControl(const QWidget &widget)
{
    const bool isCanvas = qobject_cast<const QMenuBar *>(&widget) || qobject_cast<const QMdiArea *>(&widget)
        || widget.objectName() == u"qt_scrollarea_viewport";
    const bool takesFocus = widget.focusPolicy() != Qt::NoFocus && !widget.focusProxy();
    const bool takesPart = takesFocus || qobject_cast<const QAbstractButton *>(&widget);
    return widget.isVisible() && takesPart && !isCanvas;
}

QString described(const QWidget &widget)
{
    return u"%1 \"%2\""_s.arg(QString::fromLatin1(widget.metaObject()->className()), widget.objectName());
}

bool isBad(const QString &name)
{
    return name.trimmed().isEmpty() || name.contains(u'&');
}

void addBadLines(const QMenu &menu, QStringList &bad)
{
    const QList<QAction *> lines = menu.actions();
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(const_cast<QMenu *>(&menu));
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i]->isVisible() && !lines[i]->isSeparator() && isBad(spoken->child(i)->text(QAccessible::Name))) {
            bad << menu.objectName() + u" > "_s + lines[i]->objectName();
        }
    }
}

void addBadMenus(QMenuBar &bar, QStringList &bad)
{
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&bar);
    const QList<QAction *> menus = bar.actions();
    for (int i = 0; i < menus.size(); ++i) {
        if (isBad(spoken->child(i)->text(QAccessible::Name))) {
            bad << u"menu "_s + menus[i]->objectName();
        }
        if (const QMenu *menu = menus[i]->menu()) {
            addBadLines(*menu, bad);
        }
    }
}

QImage pictureOf(QWidget &control)
{
    QApplication::processEvents();
    return control.grab().toImage();
}

// A default button has a frame all along, since Return presses it from everywhere.
void takeFocusFrom(QWidget &control)
{
    control.clearFocus();
    if (auto *button = qobject_cast<QPushButton *>(&control)) {
        button->setDefault(false);
    }
}

bool looksFocused(QWidget &control)
{
    control.setFocus(Qt::TabFocusReason);
    const QImage with = pictureOf(control);
    takeFocusFrom(control);
    return with != pictureOf(control);
}

QHash<QRgb, int> coloursOf(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    return counts;
}

} // namespace

QList<QWidget *> controlsOf(const QWidget &window)
{
    QList<QWidget *> controls = window.findChildren<QWidget *>();
    controls.removeIf([](const QWidget *widget) { return !isControl(*widget); });
    return controls;
}

QString spokenName(QWidget &control)
{
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&control);
    return spoken ? spoken->text(QAccessible::Name) : QString();
}

QStringList badlyNamedIn(QWidget &window)
{
    QStringList bad;
    const QList<QWidget *> spoken = controlsOf(window) << &window;
    for (QWidget *control : spoken) {
        if (isBad(spokenName(*control))) {
            bad << described(*control) + u": "_s + spokenName(*control);
        }
    }
    for (QMenuBar *bar : window.findChildren<QMenuBar *>()) {
        addBadMenus(*bar, bad);
    }
    return bad;
}

// The frame around a document's window and its caption are the desktop's.
QStringList withoutVisibleFocusIn(QWidget &window)
{
    QApplication::setCursorFlashTime(0);
    window.setAttribute(Qt::WA_KeyboardFocusChange); // as after Tab
    QStringList without;
    const QList<QWidget *> controls = controlsOf(window);
    for (QWidget *control : controls) {
        const bool takesTab = control->focusPolicy() & Qt::TabFocus && control->isEnabled();
        if (takesTab && !qobject_cast<QMdiSubWindow *>(control) && !looksFocused(*control)) {
            without << described(*control);
        }
    }
    return without;
}

double contrastIn(const QImage &picture)
{
    const QHash<QRgb, int> colours = coloursOf(picture);
    const auto fewer = [&](QRgb colour1, QRgb colour2) { return colours[colour1] < colours[colour2]; };
    const QList<QRgb> found = colours.keys();
    if (found.isEmpty()) {
        return 0; // nothing is in view
    }
    const QColor background = *std::ranges::max_element(found, fewer);
    double greatest = 1;
    for (const QRgb colour : found) {
        greatest = std::max(greatest, contrastRatio(colour, background));
    }
    return greatest;
}

QPalette lightPalette()
{
    QPalette light(QColor(239, 239, 239), QColor(239, 239, 239));
    light.setColor(QPalette::Highlight, QColor(48, 140, 198));
    light.setColor(QPalette::HighlightedText, Qt::white);
    light.setColor(QPalette::Inactive, QPalette::Highlight, QColor(190, 190, 190));
    light.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
    return light;
}

QPalette darkPalette()
{
    QPalette dark(QColor(53, 53, 53), QColor(42, 42, 42));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText}) {
        dark.setColor(role, QColor(230, 230, 230));
    }
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::ToolTipBase, QColor(60, 60, 60));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Inactive, QPalette::Highlight, QColor(70, 70, 70));
    dark.setColor(QPalette::Link, QColor(61, 174, 233));
    return dark;
}
