#pragma once

#include <QJsonObject>
#include <QString>

class MDIfrmTabrix;
class QAction;
class QMenu;
class SpreadGrid;

/// Does with the frame what a user does, by mouse and keyboard.
class DayHands
{
public:
    explicit DayHands(MDIfrmTabrix &frame) : m_frame(frame) { }

    /// Carries a command of the test out; it may open modal windows, and end the program. False: no such command.
    bool carryOut(const QJsonObject &command);

private:
    SpreadGrid &grid() const;
    void click(int column, int row, bool extend);
    void press(const QString &keys);
    void type(const QString &text);
    void chooseLast();
    void jump(const QString &text);
    void choose(const QString &menu, const QString &command);
    void chooseRecent(int number);
    void chooseWindow(int docNo);
    QMenu &menuInBar(const QString &name) const;
    void chooseFrom(QMenu &menu, QAction &action);
    void minimise();
    void refreshRecovery();

    MDIfrmTabrix &m_frame;
};
