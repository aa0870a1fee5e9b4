#pragma once

/// How many ms a test waits for what is to come. It goes on as soon as that is there, so that this only ends a test
/// that would hang: it is generous enough for the slowest machine.
constexpr int patience = 120'000;
