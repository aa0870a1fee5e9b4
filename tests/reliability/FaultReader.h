#pragma once

#include "tests/reliability/FaultSession.h"

#include <QMessageBox>
#include <QPointer>
#include <QTimer>

/// Adds a line to a report's text; what does not fit is left out.
void addLine(std::array<char, SessionReport::longestText> &text, const QString &line);

/// The user before the program's boxes, for as long as this object lives: he reads every one into the report, says what
/// he is asked about saving, and takes what is offered to him elsewhere.
class FaultReader
{
public:
    explicit FaultReader(SessionReport &report);

    /// Yes until told otherwise.
    void answerToSave(QMessageBox::StandardButton button) { m_toSave = button; }

private:
    void look();
    bool answer(const QMessageBox &box);

    SessionReport &m_report;
    QTimer m_timer;
    QPointer<QWidget> m_last;
    QMessageBox::StandardButton m_toSave = QMessageBox::Yes;
};
