#pragma once

#include "tool/Command.h"

extern const Command helpCommand;
