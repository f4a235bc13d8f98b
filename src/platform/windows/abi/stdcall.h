#pragma once

/// Calling convention of every library that the program loads by name. The headers of this folder
/// also compile where it has no meaning, so that a simulated library can be tested natively.
#ifdef _WIN32
#define TOLVANE_STDCALL __stdcall
#else
#define TOLVANE_STDCALL
#endif
