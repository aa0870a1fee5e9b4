#include "dialogs/PrintSettings.h"

PrintSettings SharedPrintSettings;
