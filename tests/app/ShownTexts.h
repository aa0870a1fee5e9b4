#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

class QRegularExpression;
class QWidget;

/// The texts that a user comes across in windows, each with where it was seen first.
class ShownTexts
{
public:
    /// Notes what the window shows now: captions, lists, headings, tool tips, names for a screen reader.
    void look(const QWidget &window);
    /// Right-clicks a widget inside a window that is shown, and notes the menu that appears, if any.
    void lookAtMenuOf(QWidget &widget);
    /// Opens all pages of the window's tabs one after the other.
    void lookThroughTabs(QWidget &window);

    /// The texts in which the expression finds something once the allowed names are left out, as "text (where)".
    QStringList with(const QRegularExpression &unwanted, const QStringList &allowed) const;
    qsizetype count() const { return m_texts.size(); }

private:
    void lookAt(const QWidget &widget);

    QMap<QString, QString> m_texts; ///< text, where
};
