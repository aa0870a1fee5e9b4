#pragma once

#include <QString>

class QWidget;

/// Message boxes with the program's own button texts. All texts are shown as they are, never as markup.
namespace MessageBox {

enum class Answer { Yes, No, Cancel };

/// The button texts, in this order: OK, Yes, No, Cancel. Set once the language is known.
void setButtonTexts(const QString &ok, const QString &yes, const QString &no, const QString &cancel);

/// A message with an OK button and no icon.
void showPlain(QWidget *parent, const QString &text, const QString &title);
/// A message with an OK button and the exclamation icon.
void showExclamation(QWidget *parent, const QString &text, const QString &title);
/// A question with Yes, No and Cancel and the exclamation icon. Escape and the close box mean Cancel.
Answer askYesNoCancel(QWidget *parent, const QString &text, const QString &title);
/// A question with Yes and No and the exclamation icon; true for Yes. Enter, Escape and the close box mean No.
bool askYesNo(QWidget *parent, const QString &text, const QString &title);

} // namespace MessageBox
