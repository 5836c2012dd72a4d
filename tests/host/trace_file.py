"""Traces, read by what trace/README.md says of their bytes: with no code in common with the library."""

import pathlib
import struct
import zlib

HEAD, CALL, STARTED, DIED = range(4)
NUMBERS = {1: "waited", 2: "took", 3: "status", 4: "pid", 5: "signal", 6: "exit_status"}
TEXTS = {16: "client", 17: "user", 18: "method", 19: "call", 20: "answer", 21: "printed", 22: "how", 23: "driver",
         24: "plugin", 25: "maker", 26: "fingerprint", 27: "note"}


def read(path):
    """The records as dictionaries, the head first. What is behind the last one must be nothing, or room."""
    data = pathlib.Path(path).read_bytes()
    assert data[:12] == b"LMQTRACE\x01\0\0\0", data[:12]
    records, at = [], 12
    while data[at:].strip(b"\0"):
        checksum, length = struct.unpack_from("<II", data, at)
        end = at + 8 + length
        assert end <= len(data) and zlib.crc32(data[at + 4:end]) == checksum, f"no record at {at}"
        kind, number, time = struct.unpack_from("<BQq", data, at + 8)
        record = {"kind": kind, "number": number, "time": time}
        at += 25
        while at < end:
            tag, size = struct.unpack_from("<BI", data, at)
            value = data[at + 5:at + 5 + size]
            record[(NUMBERS | TEXTS)[tag]] = struct.unpack("<Q", value)[0] if tag in NUMBERS else value
            at += 5 + size
        assert at == end
        records.append(record)
    assert records[0]["kind"] == HEAD and all(record["kind"] != HEAD for record in records[1:])
    return records


def calls(path):
    return [record for record in read(path) if record["kind"] == CALL]


def first_number(record):
    """The first parameter of a call, which is an int: of a packed call as well as of a document."""
    call = record["call"]
    if call[0] != 1:
        return int(call.split(b"<int>")[1].split(b"<")[0])
    at = 5 + struct.unpack_from("<I", call, 1)[0]
    assert call[at] == 1
    return struct.unpack_from("<i", call, at + 1)[0]
