#pragma once

/// Makes the application that is made next need no display, whatever the desktop is, if there is one.
void needNoDisplay();
