// The faults of API methods: every text stands here once.
#pragma once

#include <xmlrpc-c/base.h>

namespace lmq::fault {

/// What the fault texts of a member name: the member and its struct.
struct Place {
    const char *member;
    const char *udt;
};

/// "Input argument size mismatch: function "FUNCTION" expects COUNT argument(s)!", with the code -509.
void count(xmlrpc_env *env, const char *function, unsigned count);

/// All others have the code -501. Arguments are counted from 1. `pointee` is the C type that a pointer points to.
void argument(xmlrpc_env *env, unsigned position, const char *type);  ///< expected a TYPE
void argument_is_struct(xmlrpc_env *env, unsigned position,
                        const char *pointee);                            ///< is a struct, but I expected a POINTEE *
void argument_no_udt(xmlrpc_env *env, unsigned position);                ///< expected an array or a struct
void entry(xmlrpc_env *env, const char *pointee, const char *type);      ///< Array of POINTEE * entry: expected a TYPE
void member(xmlrpc_env *env, Place place, const char *type);             ///< expected a TYPE
void member_pointer(xmlrpc_env *env, Place place, const char *pointee);  ///< expected a POINTEE *
void member_is_struct(xmlrpc_env *env, Place place, const char *pointee);  ///< is a struct, but I expected a POINTEE *
void member_no_udt(xmlrpc_env *env, Place place);                          ///< expected an array or a struct
void member_no_inline_struct(xmlrpc_env *env, Place place,
                             const char *key);                       ///< expected an inline struct for member KEY
void member_too_long(xmlrpc_env *env, Place place, unsigned bound);  ///< larger than defined maximum of BOUND

}  // namespace lmq::fault
