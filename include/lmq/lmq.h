/**
 * @file
 * @brief The whole driver interface.
 */
#ifndef LMQ_LMQ_H
#define LMQ_LMQ_H

#include "lmq/acl.h"
#include "lmq/address.h"
#include "lmq/cfm.h"
#include "lmq/classifier.h"
#include "lmq/classifier_key.h"
#include "lmq/cosq.h"
#include "lmq/cpu_packet.h"
#include "lmq/device.h"
#include "lmq/eth_port.h"
#include "lmq/event.h"
#include "lmq/flow.h"
#include "lmq/gpon.h"
#include "lmq/gpon_tm.h"
#include "lmq/l2.h"
#include "lmq/management.h"
#include "lmq/mcast.h"
#include "lmq/peripheral.h"
#include "lmq/policer.h"
#include "lmq/status.h"
#include "lmq/time.h"
#include "lmq/types.h"
#include "lmq/vlan_bridge.h"

#endif
