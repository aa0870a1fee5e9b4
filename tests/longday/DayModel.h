#pragma once

#include "tests/editor/RowsModel.h"

#include <QByteArray>
#include <QMap>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// What a recovery copy would bring back of a document.
struct DayCopy
{
    QString caption;
    bool hasMachine;
    RowsModel rows;
};

/// What a dead program has left of a document.
struct DayLeft
{
    std::vector<DayCopy> copies; ///< any one of them
    bool must; ///< come back with the next start; else it may
};

/// An editor window as the user knows it.
struct DayWindow
{
    int number; ///< the document number
    QString caption;
    bool hasMachine; ///< false: made by the program at its start, without machine information
    RowsModel rows;
    QStringList recent; ///< shown in its File menu
    QString seenPath = {}; ///< the file that it was opened from or saved to last
    std::optional<QByteArray> seen = {}; ///< what that held then
    std::vector<DayCopy> copies = {}; ///< any of them may come back after a kill
    bool mustComeBack = false; ///< one of them does

    QByteArray bytes() const;
    /// Whether an open would bring all of it back.
    bool comesBack() const;
    /// The user does not want it written as it is and is led to the first cell that would not come back.
    void goToFirstFault();
    /// The work since the last copy may or may not be in a newer one.
    void mayBeCopied() { copies.push_back({caption, hasMachine, rows.asRecovered()}); }
    void isCopied();
    void forgetCopies();
};

/// One running program.
struct DayProgram
{
    std::vector<DayWindow> windows; ///< by document number
    std::vector<bool> usedNumbers; ///< used ones by document number - 1
    int active = 0; ///< document number
    QStringList recent; ///< shown in the frame's File menu
    QMap<QString, QByteArray> written; ///< what it left in a file last, by path
    RowsModel::Clipboard clipboard;
    QString copiedText; ///< what the last Copy or Cut here put on the clipboard
    bool hasAllButtons = false; ///< Paste's and Add-paste's, since the last open: until a window is activated
    bool isMinimised = false;
    std::vector<DayCopy> leftBehind; ///< documents that should have been saved when they were closed and were not

    DayWindow *window(int number);
    DayWindow &activeWindow();
    int takeSlot();
    /// The window becomes the active one, or is it again.
    void activate(int number);
    /// Whether the clipboard holds something else than what was copied here last; then there is no copy any more.
    bool losesCopy();
    void show(const QStringList &files);
};

/// The whole day: two programs, their files and what they share. It knows the rules of the program and none of its
/// code.
class DayModel
{
public:
    static QString untitled() { return QStringLiteral("No Name"); }

    std::array<DayProgram, 2> programs;
    QMap<QString, QByteArray> files; ///< by path
    std::array<QString, 4> stored; ///< the recent files
    std::vector<DayLeft> ofTheDead;

    /// A program has started.
    void start(int program, const std::vector<DayCopy> &recovered);
    /// A file was read into a window.
    void open(int program, const QString &path, bool hasMachine, const std::vector<RowsModel::Row> &rows);
    /// A file could not be read.
    void failToOpen(int program) { programs.at(size_t(program)).takeSlot(); }
    /// Whether a save of the window there would replace what another program has put there.
    bool replacesForeign(int program, const DayWindow &window, const QString &path) const;
    /// A window was written. listed: by a command that names the window after its file and lists that.
    void save(int program, DayWindow &window, const QString &path, bool listed);
    void close(int program, int number);
    /// What the user does in the active window's table; act is done with the program's clipboard in hand.
    template <typename Act>
    void edit(int program, Act act);
    /// Another program, or this one's sibling, puts a text on the clipboard.
    void takeForeignText(int program, const QString &text);
    void addRecent(int program, const QString &path);
    /// The menus of a program are built again.
    void showRecent(int program) { programs.at(size_t(program)).show(storedFiles()); }
    /// What the menus show when they are built now.
    QStringList storedFiles() const;

private:
    void store(const QString &path);
};

template <typename Act>
void DayModel::edit(int program, Act act)
{
    DayProgram &place = programs.at(size_t(program));
    DayWindow &window = place.activeWindow();
    window.rows.share(place.clipboard);
    act(window.rows);
    place.clipboard = window.rows.shared();
    place.copiedText = place.clipboard.text;
    if (window.rows.isChanged()) {
        window.mayBeCopied();
    }
}
