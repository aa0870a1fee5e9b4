#pragma once

#include "grid/CellSearch.h"

#include <QLineEdit>

/// The small field that takes what is searched for. It has no label, and shows at its end which of the matches has been
/// reached: "3/17".
class FindField : public QLineEdit
{
    Q_OBJECT

public:
    explicit FindField(QWidget *parent);

    /// Shows the count, and by its background whether there is no match.
    void showCount(const CellSearch::Count &count);

    QSize sizeHint() const override;

signals:
    void nextRequested();
    void previousRequested();
    void closeRequested(); ///< by Escape: the search is given up
    void leaveRequested(); ///< by Tab: the search has led where the user wants to be

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void colour();

    bool m_found = true;
    QString m_count;
};
