/* The probe driver: every function of the driver interface, each of which only records what it was handed and does what
   it was told. Record and orders stand in a file that a test shares with it; the environment variable LMQ_PROBE holds
   its path. The functions are generated from the headers; tests/wire/harness.py is the other end. */
#ifndef PROBE_H
#define PROBE_H

#include <stddef.h>
#include <stdint.h>

enum {
    PROBE_ARGUMENTS = 8,
    PROBE_BYTES = 1 << 20,  ///< of one argument's memory; the file is sparse, so that room costs nothing
};

struct probe_argument {
    int64_t value;       ///< record: of a value argument
    uint32_t is_null;    ///< record: of a pointer argument
    uint32_t size;       ///< record: bytes that stand in `bytes`
    uint32_t units;      ///< order: how many elements to record
    uint32_t fill_size;  ///< order: how many bytes of `fill` to leave in the argument's memory
    uint8_t bytes[PROBE_BYTES];
    uint8_t fill[PROBE_BYTES];
};

struct probe {
    int64_t result;     ///< order: what to return
    char function[64];  ///< record: of the last call
    uint32_t calls;     ///< record: calls since the file was made
    uint32_t count;     ///< record: arguments of the last call
    struct probe_argument arguments[PROBE_ARGUMENTS];
};

/* Begins the record of a call. */
void probe_call(const char *function, uint32_t count);

/* Records a value argument. */
void probe_value(int position, int64_t value);

/* Records the memory of a pointer argument by elements of `unit` bytes, then fills it as ordered. */
void probe_pointer(int position, void *memory, size_t unit);

/* What to return. */
int64_t probe_result(void);

#endif
