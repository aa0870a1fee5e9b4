#pragma once

#include <QObject>

class QWheelEvent;
class SpreadGrid;

/// Lets the user zoom a spread grid: Ctrl with the wheel, Ctrl+Plus and Ctrl+Minus zoom in steps of 10 %, from 50 % to
/// 300 %; Ctrl+0 goes back to 100 %.
class SpreadZoom final : public QObject
{
    Q_OBJECT

public:
    explicit SpreadZoom(SpreadGrid &grid);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void zoomBy(int steps);
    void turn(const QWheelEvent &event);

    SpreadGrid &m_grid;
    int m_turned = 0; ///< how far the wheel has been turned towards the next step, in eighths of a degree
};
