/**
 * @file
 * @brief What the plug-in exports: its entry point for a host, the operations of the call memory tracker, and the
 * builders of the records with which it describes itself.
 */
#ifndef LMQ_XMLRPC_H
#define LMQ_XMLRPC_H

#include <xmlrpc-c/base.h>
#include <xmlrpc-c/server.h>

#define LMQ_EXPORT __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @brief Registers every method of the plug-in, in a fixed order. A host calls it once, before any request.
 *
 * Note the order of the arguments: the registry comes first here, while the XML-RPC library takes the fault carrier
 * first everywhere. A row that the registry refuses leaves its fault in the carrier and does not keep the next rows
 * from being tried. Handlers share the call memory tracker, so a host calls them one at a time.
 *
 * @param registry The host's method registry.
 * @param env      The host's fault carrier.
 * @return Always 1.
 */
LMQ_EXPORT int xrpc_init(xmlrpc_registry *registry, xmlrpc_env *env);

/**
 * @brief Arms a fresh, empty list of a call's blocks. What the old list held, and the old list itself, is forgotten.
 *
 * No allocation of the tracker is tested: exhausted memory shows at the next store.
 */
LMQ_EXPORT void __x_mm_initialize(void);

/**
 * @brief Registers a block: it belongs to the tracker from here on. The list must be armed.
 * @param block A block of the heap, or NULL.
 */
LMQ_EXPORT void __x_mm_add_ptr(void *block);

/** @brief Frees all registered blocks and the list, and arms a fresh one. */
LMQ_EXPORT void __x_mm_free(void);

/**
 * @name Description records
 *
 * Each builder makes an XML-RPC struct with the keys that its parameters name, in their order, and `doc` last. The text
 * "No help available" stands in `doc` wherever nothing is documented. Strings are zero-terminated and copied. None
 * tests the fault carrier: a failure of the XML-RPC library shows there.
 *
 * @param env The fault carrier.
 * @param doc Documentation text.
 * @return A new value, which the caller owns.
 */
/** @{ */

/** @brief A macro: its name and its replacement text, as the header spells it. */
LMQ_EXPORT xmlrpc_value *x_dvr_dvar(xmlrpc_env *env, const char *name, const char *value, const char *doc);

/** @brief A member of a UDT: its type, and its name with the array bound if it has one. */
LMQ_EXPORT xmlrpc_value *x_dvr_svar(xmlrpc_env *env, const char *type, const char *name, const char *doc);

/** @brief An enumerator: its name and its value, an int of 32 bits. */
LMQ_EXPORT xmlrpc_value *x_dvr_evar(xmlrpc_env *env, const char *name, int value, const char *doc);

/**
 * @brief A parameter or the result of a function.
 * @param application_type The type as the application sees it.
 * @param primative_type   The same behind the typedef chain. (The spelling is part of the interface.)
 * @param declaration_name The parameter's name; NULL makes a nil, and an empty string an empty string.
 * @param isUDT            Whether the type is a pointer to a UDT: 1 or 0, told as a boolean.
 */
LMQ_EXPORT xmlrpc_value *x_dvr_var(xmlrpc_env *env, const char *application_type, const char *primative_type,
                                   const char *declaration_name, int isUDT, const char *doc);
/** @} */

#ifdef __cplusplus
}
#endif

#endif
