#pragma once

#include "desktop/BusyCursor.h"
#include "document/FileHost.h"

#include <QElapsedTimer>
#include <QWidget>

#include <optional>

/// The desktop for reading and writing: message boxes over the frame, the pointer, the event loop.
class FrameFileHost : public FileHost
{
public:
    explicit FrameFileHost(QWidget &frame) : m_frame(frame) { }

    void showMessage(const QString &text) override;
    void showFailure(const Failure &failure, const QString &title) override;
    bool askYesNo(const QString &question, const QString &title) override;
    void setBusy(bool busy) override;
    void runPendingEvents() override;

private:
    QWidget &m_frame;
    std::optional<BusyCursor> m_busy;
    QElapsedTimer m_sinceEvents;
};
