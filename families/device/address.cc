// UDTs of IP addresses, which all families share.
#include "families/udts.h"
#include "lmq/address.h"
#include "marshal/describe.h"

namespace lmq {

UDT(vx_in_addr_t,
    SCALAR(vx_uint32, s_addr))

// Three views of the same 16 bytes.
UDT(vx_in6_addr_t,
    INLINE(in6_u,
        ELEMENTS(vx_uint8,  in6_u.u6_addr8,  16),
        ELEMENTS(vx_uint16, in6_u.u6_addr16, 8),
        ELEMENTS(vx_uint32, in6_u.u6_addr32, 4)))

// Nothing here looks at the selector ip_ver: every alternative that is sent is stored, the last one over the others,
// and every alternative is answered.
UDT(vx_ip_addr_t,
    INLINE(addr,
        NESTED(vx_in_addr_t,  addr.v4),
        NESTED(vx_in6_addr_t, addr.v6)),
    SCALAR(vx_ip_ver_t, ip_ver))

} // namespace lmq
