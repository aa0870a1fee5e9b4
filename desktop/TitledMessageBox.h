#pragma once

#include <QMessageBox>

/// A message box that is wide enough for its title, which is the name of a file. A title that does not fit on the
/// screen is elided in the middle and shown in full above the text. Title and text are shown as they are, never as
/// markup.
class TitledMessageBox : public QMessageBox
{
public:
    TitledMessageBox(const QString &title, const QString &text, QWidget *parent);

    bool event(QEvent *event) override;

protected:
    void showEvent(QShowEvent *event) override;

private:
    void widenForTitle();

    int m_neededWidth;
};
