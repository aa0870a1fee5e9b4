#pragma once

#include "tests/reliability/FaultSession.h"

#include <iosfwd>
#include <string>
#include <vector>

/// What a session begins with: nothing but the file; backups and settings; also what a crash left.
enum class Home { Fresh, Used, Crashed };

/// A session and what it begins with.
struct FaultScene
{
    Session session;
    Home home;
    const char *name;
};

inline constexpr FaultScene faultScenes[] = {
    {Session::Save, Home::Fresh, "firstSave"},
    {Session::Save, Home::Used, "save"},
    {Session::Close, Home::Used, "close"},
    {Session::Start, Home::Fresh, "firstStart"},
    {Session::Start, Home::Used, "start"},
    {Session::Recover, Home::Crashed, "recover"},
};

void PrintTo(const FaultScene &scene, std::ostream *out);
void PrintTo(FaultCall call, std::ostream *out);

/// All that can happen to a call; each is for the first time that it is made.
std::vector<Fault> faultsOf(FaultCall call);

/// A fault in words, as TABRIX_FAULT_POINT takes it: call:act:error:number.
std::string nameOf(const Fault &fault);
/// The fault of that name; throws when there is none.
Fault faultNamed(const std::string &name);
