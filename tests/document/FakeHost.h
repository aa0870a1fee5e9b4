#pragma once

#include "app/Messages.h"
#include "document/FileHost.h"

#include <QStringList>

#include <functional>

/// Records what reading and writing ask of the desktop.
class FakeHost : public FileHost
{
public:
    void showMessage(const QString &text) override { messages << text; }
    void showFailure(const FileFailure &failure, const QString &title) override
    {
        messages << failureText(failure);
        titles << title;
        busyAtError = busyAtError || busy;
    }
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
    QStringList titles; ///< of the errors
    bool busy = false;
    bool busyAtError = false; ///< an error was shown under the busy pointer
    int busyCalls = 0;
    int eventPasses = 0;
    std::function<void()> duringEvents;
};
