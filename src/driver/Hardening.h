// What the process does before anything else, so that nobody else's code is loaded into it and it never stops at a box
// that nobody answers.
#pragma once

namespace crashvane {

// Libraries come from the system's folder alone from now on, wherever the program lies; a missing disk or a fault
// brings no system box; an exception that nobody caught ends the process quietly with exit code 1. What a program
// started from here would inherit of it, RestoreLibrarySearch takes back.
void HardenProcess();

// Gives the current folder its place in the search for libraries back.
void RestoreLibrarySearch();

}  // namespace crashvane
