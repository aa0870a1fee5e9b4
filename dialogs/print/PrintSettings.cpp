#include "dialogs/print/PrintSettings.h"

PrintSettings SharedPrintSettings;
