#pragma once

/// Windows' own header without what gets in the way: std::byte's namesake and the macros min, max and MessageBox. Empty
/// on other systems.
#include <QtGlobal>

#ifdef Q_OS_WIN
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#undef MessageBox
#endif
