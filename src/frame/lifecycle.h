// The bodies of the lifecycle exports: building the tables and connecting, letting go of Photoshop, and the
// host's parameters.
#pragma once

namespace ostrel {

// Builds the three tables that need building (tool, top menu, filter, in that order) and connects. 1 if
// connected afterwards, else 0. The tables are built once: a later call gives the same tables and frees nothing,
// so a lookup running on another thread keeps valid rows.
int InitLibrary();

// Lets go of the connection to Photoshop, and nothing else: the tables, the ProgID strings and the calling
// thread's COM initialization stay.
void UnInitLibrary();

// Sets the host parameter of a key (24, 25 Camera Raw image folders, 33 log directory, 53 bar sizes file, 66
// Photoshop version name) for the whole process. A null value takes the key back, so that the environment
// variable OSTREL_TALLY_<key> (or nothing) answers again. 1 if set, 0 for a key the library doesn't read.
int SetHostParameter(int key, const wchar_t* value);

}  // namespace ostrel
