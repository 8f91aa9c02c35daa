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
