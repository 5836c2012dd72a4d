/**
 * @file
 * @brief What the remote driver has besides the driver interface: where the chip's host is, several chips, and what
 * went wrong. A program that includes no more than the driver interface needs none of it: the environment says where
 *        the host is.
 *
 * | Variable | Says |
 * |---|---|
 * | `LMQ_URL` | the host: http://HOST:PORT/RPC2, https://..., unix:PATH; http://127.0.0.1:8080/RPC2 without it |
 * | `LMQ_USER`, `LMQ_PASSWORD` | who calls |
 * | `LMQ_CACERT`, `LMQ_CERT`, `LMQ_KEY` | files for https, PEM: whom to trust, the own certificate and its key |
 * | `LMQ_TIMEOUT` | seconds that a call may take, 30 without it, 0 for no end |
 * | `LMQ_REMOTE_QUIET` | 1 keeps failures from standard error |
 */
#ifndef LMQ_REMOTE_H
#define LMQ_REMOTE_H

#ifdef __cplusplus
extern "C" {
#endif

/**
 * @brief What a driver function answers when its call failed on the way. A driver answers none of these, and what the
 *        arguments point to is unchanged. Functions whose result is no status answer 0, or nothing.
 */
typedef enum {
    LMQ_REMOTE_NOT_SENT = 0x4C4D5101, /**< There is no way to the host, or no form for an argument. Not carried out. */
    LMQ_REMOTE_REFUSED = 0x4C4D5102,  /**< The host refused, with a fault or a status of HTTP. Not carried out. */
    LMQ_REMOTE_LOST = 0x4C4D5103,     /**< Sent, but not answered. It may have been carried out, or be so yet. */
    LMQ_REMOTE_MISFIT = 0x4C4D5104    /**< Carried out, but the answer does not fit this program's types or buffers. */
} lmq_remote_status_e;

/** @brief Where a host is. What is NULL or 0 is taken from the environment, so an option set of zeros is the default.
 */
typedef struct {
    const char *url;      /**< In the place of LMQ_URL. */
    const char *user;     /**< In the place of LMQ_USER. */
    const char *password; /**< In the place of LMQ_PASSWORD. */
    const char *cacert;   /**< In the place of LMQ_CACERT. */
    const char *cert;     /**< In the place of LMQ_CERT. */
    const char *key;      /**< In the place of LMQ_KEY. */
    double timeout;       /**< Seconds, in the place of LMQ_TIMEOUT. */
} lmq_remote_options_t;

/**
 * @brief Says where chip 0 is, which every thread calls until it chooses another one, and connects to its host.
 * @param options Where; NULL for what the environment says.
 * @return 0, or LMQ_REMOTE_NOT_SENT if the options cannot be used or there is no connection. The options count in any
 *         case, and the next call tries again.
 */
int lmq_remote_connect(const lmq_remote_options_t *options);

/**
 * @brief Adds a chip. The connection is made by its first call.
 * @param options Where its host is; NULL for what the environment says.
 * @return The chip's number, from 1, for lmq_remote_use(); or 0 if the options cannot be used.
 */
int lmq_remote_open(const lmq_remote_options_t *options);

/**
 * @brief Chooses the chip that this thread's calls go to from now on. Other threads keep theirs.
 * @param chip What lmq_remote_open() answered, or 0.
 * @return 0, or LMQ_REMOTE_NOT_SENT if there is no such chip; the choice is then unchanged.
 */
int lmq_remote_use(int chip);

/**
 * @brief Forgets a chip, after the call that is under way there. Threads that have chosen it get LMQ_REMOTE_NOT_SENT
 * for their calls until they choose another one.
 * @param chip What lmq_remote_open() answered. Chip 0 stays.
 * @return 0, or LMQ_REMOTE_NOT_SENT if there is no such chip.
 */
int lmq_remote_close(int chip);

/**
 * @brief The last failure of this thread, in words.
 * @return The text, until the thread's next failure; "" if there was none.
 */
const char *lmq_remote_error(void);

#ifdef __cplusplus
}
#endif

#endif
