#!/usr/bin/env python3
"""Python's threading XML-RPC server over HTTP/1.1 with two methods like the plug-in's, to measure lmq-host against:
python_server.py PORT"""

import sys
from socketserver import ThreadingMixIn
from xmlrpc.server import SimpleXMLRPCRequestHandler, SimpleXMLRPCServer


class Handler(SimpleXMLRPCRequestHandler):
    protocol_version = "HTTP/1.1"
    disable_nagle_algorithm = True
    encode_threshold = None


class Server(ThreadingMixIn, SimpleXMLRPCServer):
    daemon_threads = True
    request_queue_size = 2000


server = Server(("127.0.0.1", int(sys.argv[1])), Handler, logRequests=False)
MASK = {"wd_enable": 0, "wd_timer": 0, "wd_action": 0, "reserved": 0}
WATCHDOG = {"wd_enable": 0, "wd_timer": 0, "wd_action": 0, "mask_s": MASK}
server.register_function(lambda device, config: [0, device, {**config, **WATCHDOG}], "lmq.vx_watchdog_get")
server.register_function(lambda start: [0, start], "lmq.lmq_init_system")
server.serve_forever()
