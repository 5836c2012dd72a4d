// A driver with one function, which tells the builds of this file apart. Without DRIVER_ID it has none at all.
#ifdef DRIVER_ID
#include <stdlib.h>
#include <unistd.h>

int host_test_driver_id(void);

// Hangs while it is loaded, for as long as the file exists that HOST_TEST_HANG names.
__attribute__((constructor)) static void hang(void) {
    const char *path = getenv("HOST_TEST_HANG");
    while (path != NULL && access(path, F_OK) == 0) usleep(1000);
}

// Reads where nothing is.
int host_test_driver_crash(const volatile int *nowhere);
int host_test_driver_crash(const volatile int *nowhere) { return *nowhere; }

// Uses up the stack.
int host_test_driver_recurse(volatile int *depth);
int host_test_driver_recurse(volatile int *depth) {
    volatile int own[256] = {*depth + 1};
    if (own[0] < 0) return 0;
    return host_test_driver_recurse(own) + own[0];
}

int host_test_driver_id(void) { return DRIVER_ID; }
#else
extern const int host_test_nothing;
const int host_test_nothing = 0;
#endif
