#pragma once

#include <QPointer>
#include <QString>
#include <QTimer>

#include <random>

class QDialog;
class QMessageBox;

/// Answers every modal window with one of the keys that users have for it.
class RandomAnswers
{
public:
    explicit RandomAnswers(std::mt19937 &random);

    /// From now on nothing is saved.
    void giveUpChanges() { m_givesUp = true; }
    void answerFreely() { m_givesUp = false; }
    /// The folder of a file dialog's files.
    void setFile(const QString &fileName) { m_fileName = fileName; }
    int given() const { return m_given; }

private:
    int upTo(int most);
    void poll();
    void answerNow(QDialog &dialog);
    void answer(QDialog &dialog);
    void answerMessage(QMessageBox &box);
    void fumble();

    std::mt19937 &m_random;
    QTimer m_timer;
    QString m_fileName;
    bool m_givesUp = false;
    QPointer<QObject> m_answered; ///< at this moment
    int m_given = 0;
};
