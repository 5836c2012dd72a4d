/* What all functions of the probe driver share: the file with the record and the orders. */
#include "probe.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>

_Static_assert(sizeof(struct probe_argument) == 24 + 2 * PROBE_BYTES, "the test's layout of an argument");
_Static_assert(offsetof(struct probe, arguments) == 80, "the test's layout of the record");

static void fail(const char *what) {
    fprintf(stderr, "probe driver: %s\n", what);
    abort();
}

static struct probe *probe(void) {
    static struct probe *shared;
    if (shared) return shared;
    const char *path = getenv("LMQ_PROBE");
    if (!path) fail("LMQ_PROBE is not set");
    const int file = open(path, O_RDWR);
    if (file < 0) fail("cannot open the file that LMQ_PROBE names");
    shared = mmap(NULL, sizeof *shared, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    if (shared == MAP_FAILED) fail("cannot map the file that LMQ_PROBE names");
    return shared;
}

void probe_call(const char *function, uint32_t count) {
    snprintf(probe()->function, sizeof probe()->function, "%s", function);
    probe()->count = count;
    ++probe()->calls;
}

void probe_value(int position, int64_t value) { probe()->arguments[position].value = value; }

void probe_pointer(int position, void *memory, size_t unit) {
    struct probe_argument *argument = &probe()->arguments[position];
    const size_t size = argument->units * unit;
    if (size > PROBE_BYTES) fail("more is to be recorded than there is room for");
    argument->is_null = memory == NULL;
    argument->size = memory ? (uint32_t)size : 0;
    if (!memory) return;
    memcpy(argument->bytes, memory, size);
    memcpy(memory, argument->fill, argument->fill_size);
}

int64_t probe_result(void) { return probe()->result; }
