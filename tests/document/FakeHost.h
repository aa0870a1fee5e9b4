#pragma once

#include "app/services/Messages.h"
#include "document/SaveHost.h"

#include <QStringList>

#include <functional>

/// Records what reading and writing ask of the desktop.
class FakeHost : public SaveHost
{
public:
    void showMessage(const QString &text) override { messages << text; }
    void showFailure(const Failure &failure, const QString &title) override
    {
        messages << failureText(failure);
        titles << title;
        busyAtError = busyAtError || busy;
    }
    bool askToReplace(const Failure &obstacle, const QString &title) override
    {
        return askYesNo(failureText(obstacle), title);
    }
    bool askYesNo(const QString &question, const QString &title) override
    {
        questions << question;
        titles << title;
        if (duringQuestion) {
            duringQuestion();
        }
        return answersYes;
    }
    bool askToWrite(const QList<ReadBackFinding> &found, const QString &title) override
    {
        findings = found;
        titles << title;
        return answersYes;
    }
    void showCell(const CellPosition &cell) override { cells << cell; }
    void setBusy(bool on) override
    {
        busy = on;
        busyCalls += on ? 1 : 0;
    }
    void runPendingEvents() override
    {
        ++eventPasses;
        if (duringEvents) {
            duringEvents();
        }
    }

    QStringList messages; ///< of both kinds, in order
    QStringList questions;
    QList<ReadBackFinding> findings; ///< of the last question about them
    QList<CellPosition> cells; ///< that the user was led to
    bool answersYes = false; ///< to every question
    QStringList titles; ///< of the errors and questions
    bool busy = false;
    bool busyAtError = false; ///< an error was shown under the busy cursor
    int busyCalls = 0;
    int eventPasses = 0;
    std::function<void()> duringEvents;
    std::function<void()> duringQuestion;
};
