#pragma once

#include "tests/longday/DayDisk.h"
#include "tests/longday/DayModel.h"
#include "tests/longday/DayPeer.h"

#include <QSet>
#include <QTemporaryDir>

#include <random>

/// A day of random acts with two programs, each held against the model.
class Day
{
public:
    explicit Day(unsigned seed);

    /// Lays the files out and starts both programs.
    void begin();
    /// One act; its words are then in done(). Throws std::runtime_error when a program does not do its part.
    void act();
    const QStringList &done() const { return m_done; }
    /// What differs from the model; empty when nothing does.
    QString difference();
    /// How often something has happened, by its name.
    const QMap<QString, int> &counts() const { return m_counts; }
    bool canFillDisk() const { return m_disk.canBeFull(); }

private:
    /// A modal window that has to appear, and its answer. An empty text stands for any. A "question" is a message that
    /// can be answered by Yes or No, and Enter says No.
    struct Expected
    {
        QString kind;
        QString text;
        QString answer;
    };
    /// A save as it is going to go, and the windows on its way.
    struct Save
    {
        QString path; ///< empty: the user gives no name
        bool isListed = true;
        bool asksBack = false; ///< what would not come back is not to be written
        bool isDeclined = false; ///< that, or another program's content is to stay
        QList<Expected> boxes = {};
    };
    using Act = bool (Day::*)();
    struct ActLine
    {
        const char *name;
        Act run; ///< false: not possible now
        int weight;
    };
    static const std::vector<ActLine> &acts();

    // Chance
    int upTo(int least, int most) { return std::uniform_int_distribution(least, most)(m_random); }
    bool chance(int percent) { return upTo(1, 100) <= percent; }
    template <typename List>
    const auto &oneOf(const List &list)
    {
        return list[typename List::size_type(upTo(0, int(list.size()) - 1))];
    }
    RowsModel::Row randomRow(int number);
    const QString &randomText(int column);

    // The program in front
    DayProgram &program() { return m_model.programs.at(size_t(m_front)); }
    DayWindow &window() { return program().activeWindow(); }
    bool hasRows() { return program().active != 0 && window().rows.rowCount() > 0; }
    void say(const QString &words);
    /// Carries a command out with these windows on the way, in this order, and maybe some of a save behind them.
    QJsonObject run(const QJsonObject &command, const QList<Expected> &expected = {});
    void press(const QString &keys)
    {
        run({{QStringLiteral("do"), QStringLiteral("press")}, {QStringLiteral("text"), keys}});
    }
    void tool(int button);
    QString answerTo(const DayBox &box);
    void adoptActive(const QJsonObject &shown);
    void comeToFront(int program);

    // Acts in the table
    bool clickCell();
    bool selectBlock();
    bool selectRows();
    bool selectRowsUpward();
    bool typeText();
    bool chooseStep();
    bool toggle();
    bool pressDelete();
    bool pressEscape();
    bool copy();
    bool cut();
    bool paste();
    bool addPaste();
    bool addLine();
    bool deleteLines();
    bool undo();
    bool redo();
    bool jump();
    void click(int column, int row, bool extend = false);
    void moveTo(int column, int row);
    template <typename Change>
    bool command(Change change);
    void shareClipboard();

    // Acts with files, windows and programs
    bool open();
    bool openRecent();
    bool save();
    bool saveByTool();
    bool saveAs();
    bool closeWindow();
    bool changeWindow();
    bool exitProgram();
    bool closeMinimised();
    bool writeByOthers();
    bool changeProgram();
    bool minimise();
    bool takeForeignText();
    bool fillDisk();
    bool makeRoom();
    bool refreshRecovery();
    bool killProgram();
    bool killInASave();

    QString randomPath();
    Save planSave(const DayWindow &window, bool asksForName);
    void addQuestions(Save &save, const DayWindow &window, bool mayReplace);
    bool carryOut(const Save &save, const QJsonObject &command);
    void finishSave(DayWindow &window, const Save &save);
    bool openPath(const QString &path, const QJsonObject &command, const QList<Expected> &expected);
    /// How the user answers when a window is to be closed.
    struct Closing
    {
        int number;
        QString answer = {}; ///< empty: nothing is asked
        Save save = {};
        QList<Expected> boxes = {};

        bool isRefused() const { return answer == u"Cancel" || answer == u"Escape" || save.isDeclined; }
    };
    Closing planClosing(const DayWindow &window, bool maySave);
    void finishClosing(const Closing &closing);
    bool leave(const QJsonObject &command, bool inBackground);
    void endProgram();
    void restart();
    std::vector<DayCopy> recovered(const QJsonObject &shown);
    bool isKept(const QByteArray &bytes) const;
    static std::optional<QByteArray> read(const QString &path);
    static void write(const QString &path, const QByteArray &bytes);
    QString fileDifference() const;
    QString differenceAfterFocus(int number, const QJsonObject &shown);
    void complain(const QString &words);

    std::mt19937 m_random;
    QTemporaryDir m_folder;
    DayDisk m_disk;
    DayModel m_model;
    std::array<DayPeer, 2> m_peers;
    int m_front = 0;
    QStringList m_done;
    QMap<QString, int> m_counts;
    QSet<QString> m_torn; ///< files in which a failed save has left a part
    QString m_complaint; ///< the first thing that was wrong besides what is shown

    bool m_focusHasMoved = false; ///< and the program in front may still be given it

    // The act under way
    QList<Expected> m_expected;
    QString m_path; ///< of the save; empty outside
    bool m_saveFailed = false;
};
