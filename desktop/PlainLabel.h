#pragma once

class QLabel;
class QString;
class QWidget;

/// A label of that object name that shows its text as it is, also where it looks like markup.
QLabel *newPlainLabel(const QString &name, QWidget *parent);
