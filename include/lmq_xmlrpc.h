/**
 * @file
 * @brief What the plug-in exports: its entry point for a host, and the operations of the call memory tracker.
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

#ifdef __cplusplus
}
#endif

#endif
