// Module lifecycle: the two calls that frame every use of the library.
#pragma once

#include "ostrel/export.h"

// Builds the vocabulary tables (tool, top menu, filter, in that order) and connects to Photoshop.
// Returns 1 if connected afterwards, 0 if not. The script parsers and vocabulary lookups work either way.
OSTREL_API int Ostrel_Init() noexcept;

// Lets go of the connection to Photoshop. The tables stay; a later Ostrel_Init may connect again.
OSTREL_API void Ostrel_UnInit() noexcept;

// 1 if Photoshop answers a call now (its visibility or its version can be read), else 0; 0 when not connected.
OSTREL_API int Ostrel_IsServiceIdle() noexcept;

// Gives the library a host parameter by its key, for the whole process: 24 and 25 the folders of the Camera Raw
// reference images, 33 the log's base directory (taken unchanged, so end it with a separator), 53 the bar sizes
// file, 66 the Photoshop version name ("Adobe Photoshop CC 2017" ... "Adobe Photoshop 2021"). Call it before
// Ostrel_Init for the keys that Ostrel_Init reads (33, 66). A null value takes a key back. Returns 1 if set, 0 for
// a key the library doesn't read. This export is OstrelCore's own addition to the interface, with C linkage so
// that a host can also find it by name with GetProcAddress.
extern "C" OSTREL_API int Ostrel_SetParameter(int key, const wchar_t* value) noexcept;
