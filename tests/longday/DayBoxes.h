#pragma once

#include "tests/longday/DayLine.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

/// Tells the test of every modal window that appears, and answers it as the test says.
class DayBoxes : public QObject
{
    Q_OBJECT

public:
    explicit DayBoxes(DayLine &line);

private:
    void poll();
    bool isReady(const QWidget &window);
    void answer(QWidget &window, const QString &answer);

    DayLine &m_line;
    QTimer m_timer;
    QList<QPointer<QWidget>> m_seen;
    const QWidget *m_waitsFor = nullptr; ///< compared only
    int m_polls = 0;
};
