// The library's allocations of texts: they can fail, and are watched.
#ifndef TIDEWELL_TESTS_SUPPORT_LOCAL_ALLOCATIONS_H
#define TIDEWELL_TESTS_SUPPORT_LOCAL_ALLOCATIONS_H

#include <windows.h>

// Which allocation from now on fails; 0: none.
extern int failingAllocation;
// Of all until now, in bytes.
extern SIZE_T largestAllocation;

#endif
