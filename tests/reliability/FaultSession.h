#pragma once

#include "tests/reliability/FaultPlan.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>

class QApplication;

/// What a session of the program tells while it runs, in plain memory that outlives it.
struct SessionReport
{
    static constexpr std::size_t longestText = 8192;

    std::array<char, longestText> messages{}; ///< the message boxes of the part with faults, one a line
    std::array<char, longestText> laterMessages{}; ///< those that appeared afterwards
    std::array<char, longestText> remarks{}; ///< what was wrong on the disk or in the window, one a line
    std::atomic<bool> hasCopy = false; ///< the work was in a recovery copy before anything else was tried
    std::atomic<bool> isDone = false; ///< the part with faults is over
    std::atomic<bool> failed = false; ///< in that part the user did not get what he wanted
    std::atomic<bool> staysOpen = false; ///< the window is still there although it was to be closed
    std::atomic<bool> isOver = false; ///< the session has come to its end
};

/// A folder with all that one run of the program reads and writes.
struct SessionPlace
{
    std::string folder; ///< absolute
    std::string earlier; ///< the content of the document's file before the session
    std::string changed; ///< its content once what the session types is saved

    std::string file() const { return folder + "/desk/a.inv"; }
    std::string data() const { return folder + "/data"; }
    std::string config() const { return folder + "/config"; }
};

enum class Session {
    Prepare, ///< saves many times, so that there are backups and settings
    Abandon, ///< changes two documents, keeps copies of them and dies
    Save, ///< changes the file's document, keeps a copy and saves
    Close, ///< changes it, keeps a copy, and closes the program, to be saved when asked
    Start, ///< starts with the file, and quits
    Recover, ///< starts after Abandon, and saves the file's document
    Resume, ///< starts after any of these without faults, and saves what there is to save
};

/// The text that Abandon types into a document without a name.
inline constexpr std::string_view untitledWork = "Work without a name";
/// The name of the first parameter once changed.
inline constexpr std::string_view newName = "Renamed and a little longer than before";

/// Makes the application that all sessions begin with: they are forked from it, which saves each the search for fonts.
/// It has one thread, and knows no folder of the user's yet.
std::unique_ptr<QApplication> makeSessionApplication();

/// Runs a session in this process, a fork of the one with the application, and ends the process.
[[noreturn]] void runSession(Session session, const SessionPlace &place, FaultPlan &plan, SessionReport &report);

/// The library's entry; does nothing where it is not loaded.
void followPlan(FaultPlan *plan);
