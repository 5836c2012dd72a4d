"""Python's xmlrpc.client."""

import sys
import xmlrpc.client

proxy = xmlrpc.client.ServerProxy(sys.argv[1])
proxy.lmq.lmq_write_register(0, 4096, 305419896)
read = proxy.lmq.lmq_read_register(0, 4096, [0])
print("number", read[3][0])
print("array", len(read))
proxy.lmq.vx_watchdog_set(0, {"wd_enable": 1, "wd_timer": 77, "mask_s": {"wd_enable": 1, "wd_timer": 1}})
print("struct", proxy.lmq.vx_watchdog_get(0, {})[2]["wd_timer"])
try:
    proxy.lmq.nobody()
except xmlrpc.client.Fault as fault:
    print("fault", fault.faultCode)
many = xmlrpc.client.MultiCall(proxy)
for _ in range(900):
    many.lmq.lmq_read_register(0, 4096, [0])
print("multicall", *[each[3][0] for each in many()][-3:])
