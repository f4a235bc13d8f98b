#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/* Each drives one loaded library through a whole session, from C, by declarations of its own: the
 * tables of the vendors' calls written down a second time, without a header of the program. What
 * does not fit is a fault of the program's declarations, as the library is compiled by these.
 *
 * `module` is a HMODULE. Null when everything came as expected, else what did not, in words that
 * live for ever. In the x86 build each call is watched for what it leaves on the stack: a callee
 * that cleans up less or more than its caller believes moves it. */
const char* DriveCanusb(void* module);
const char* DriveIfcan(void* module);
const char* DriveCanlib(void* module);
const char* DriveQxt100(void* module);

#ifdef __cplusplus
}
#endif
