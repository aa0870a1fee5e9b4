#pragma once

#include "tool/Session.h"

#include <QElapsedTimer>

/// How far the work on many files is, in one line on standard error, where that is a terminal. Nothing is shown of work
/// that is done soon.
class Progress
{
public:
    Progress(Session &session, qsizetype files);
    ~Progress() { clear(); }
    Q_DISABLE_COPY_MOVE(Progress)

    /// Whether there is a terminal to show it.
    bool isShown() const { return m_isShown; }
    /// Shows how many files are done.
    void update(qsizetype done);
    /// Takes the line away; to be called before anything else is written.
    void clear();

private:
    Session &m_session;
    qsizetype m_files;
    qsizetype m_done = -1;
    bool m_isShown;
    bool m_hasLine = false;
    QElapsedTimer m_time;
};
