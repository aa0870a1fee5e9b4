#include "tests/app/ShownTexts.h"

#include "tests/support/Patience.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr int firstRows = 30;

QStringList textsOf(const QAbstractItemModel &model)
{
    QStringList texts;
    for (int row = 0; row < std::min(model.rowCount(), firstRows); ++row) {
        for (int column = 0; column < model.columnCount(); ++column) {
            texts << model.index(row, column).data().toString()
                  << model.index(row, column).data(Qt::ToolTipRole).toString();
        }
    }
    for (int column = 0; column < model.columnCount(); ++column) {
        texts << model.headerData(column, Qt::Horizontal).toString();
    }
    return texts;
}

QStringList textsOf(const QWidget &widget)
{
    QStringList texts{widget.toolTip(), widget.accessibleName(), widget.accessibleDescription()};
    if (widget.isWindow()) {
        texts << widget.windowTitle();
    }
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        texts << label->text();
    } else if (const auto *button = qobject_cast<const QAbstractButton *>(&widget)) {
        texts << button->text();
    } else if (const auto *group = qobject_cast<const QGroupBox *>(&widget)) {
        texts << group->title();
    } else if (const auto *box = qobject_cast<const QLineEdit *>(&widget)) {
        texts << box->placeholderText();
    } else if (const auto *number = qobject_cast<const QAbstractSpinBox *>(&widget)) {
        texts << number->text();
    } else if (const auto *choice = qobject_cast<const QComboBox *>(&widget)) {
        texts << textsOf(*choice->model());
    } else if (const auto *tabs = qobject_cast<const QTabBar *>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i) {
            texts << tabs->tabText(i) << tabs->tabToolTip(i);
        }
    } else if (const auto *list = qobject_cast<const QAbstractItemView *>(&widget); list && list->model()) {
        texts << textsOf(*list->model());
    }
    for (const QAction *action : widget.actions()) {
        if (action->isVisible()) {
            texts << action->text() << action->toolTip();
        }
    }
    return texts;
}

} // namespace

void ShownTexts::look(const QWidget &window)
{
    lookAt(window);
    for (const auto *widget : window.findChildren<QWidget *>()) {
        if (widget->isVisibleTo(&window)) {
            lookAt(*widget);
        }
    }
}

void ShownTexts::lookAt(const QWidget &widget)
{
    for (const QString &text : textsOf(widget)) {
        if (!text.isEmpty() && !m_texts.contains(text)) {
            m_texts.insert(text,
                QString::fromLatin1(widget.window()->metaObject()->className()) + u' ' + widget.objectName() + u' '
                    + QString::fromLatin1(widget.metaObject()->className()));
        }
    }
}

void ShownTexts::lookAtMenuOf(QWidget &widget)
{
    // Some menus wait in a loop of their own.
    QTimer::singleShot(0, &widget, [this] {
        if (QWidget *menu = QApplication::activePopupWidget()) {
            look(*menu);
            menu->close();
        }
    });
    QWidget &window = *widget.window();
    QTest::mouseClick(window.windowHandle(), Qt::RightButton, {}, widget.mapTo(&window, widget.rect().center()));
    QCoreApplication::processEvents();
}

void ShownTexts::lookThroughTabs(QWidget &window)
{
    for (auto *tabs : window.findChildren<QTabBar *>()) {
        for (int i = 0; i < tabs->count(); ++i) {
            QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(i).center());
            look(window);
        }
    }
}

QStringList ShownTexts::with(const QRegularExpression &unwanted, const QStringList &allowed) const
{
    QStringList found;
    for (const auto &[text, where] : m_texts.asKeyValueRange()) {
        QString rest = text.contains(unwanted) ? text : QString();
        for (const QString &name : rest.isEmpty() ? QStringList() : allowed) {
            rest.remove(QRegularExpression(u"(?<![A-Za-z])%1(?![A-Za-z])"_s.arg(QRegularExpression::escape(name))));
        }
        if (rest.contains(unwanted)) {
            found << u"%1 (%2)"_s.arg(text, where);
        }
    }
    return found;
}
