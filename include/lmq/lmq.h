/**
 * @file
 * @brief The whole driver interface.
 */
#ifndef LMQ_LMQ_H
#define LMQ_LMQ_H

#include "lmq/address.h"
#include "lmq/device.h"
#include "lmq/status.h"
#include "lmq/types.h"

#endif
