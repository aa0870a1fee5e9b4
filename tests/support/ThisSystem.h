#pragma once

#include <QString>

/// What the system that the tests run on says and has.
namespace ThisSystem {

/// Its text for an error, which is a number of errno.
QString words(int error);
/// Whether everybody may make symbolic links.
bool hasLinks();
/// Whether a file may be called "|1.inv"; if not, none of " * / : < > ? \\ | and the control characters may be in a
/// name.
bool allowsBarsInNames();
/// What QT_QPA_PLATFORM is in a desktop's session, where the command-line tool does without: the tests' own on Windows,
/// where the tool goes by it.
QString sessionPlatform();
/// Whether environment variables (XDG_...) name the folders of settings and data.
bool hasFolderVariables();
/// How often a test repeats what goes through files, of so many times: opening and closing takes far longer under Wine.
int repetitions(int usual);
/// A device that can be written to and takes nothing, as a full disk; empty if there is none.
QString fullDevice();

} // namespace ThisSystem
