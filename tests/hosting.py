"""A running lmq-host, for every test that needs one.

    with Host(plugin=..., driver=...) as host:
        xmlrpc.client.ServerProxy(host.url)

It gets an environment of its own: no variable LMQ_... of the caller reaches it. It must end in order.
"""

import os
import pathlib
import re
import signal
import subprocess
import tempfile


def environment(**variables):
    """The caller's environment without what this project's programs would read, and with these variables."""
    kept = {name: value for name, value in os.environ.items() if not name.startswith("LMQ_")}
    return {**kept, **variables}


class Host:
    """A host that serves. Its standard error goes to a file, so that it never has to wait for a reader."""

    def __init__(self, *options, program=None, plugin=None, driver=None, listen="127.0.0.1:0", stop=signal.SIGTERM,
                 pass_fds=(), **variables):
        """Starts it and waits until it listens.

        program: the host; by default what LMQ_HOST names
        plugin, driver: by default those that it finds by itself
        listen: None if the options say where
        stop: the signal that ends it
        pass_fds: descriptors that it inherits
        variables: of the environment
        """
        command = [program or os.environ["LMQ_HOST"], *options]
        for option, value in (("--plugin", plugin), ("--driver", driver), ("--listen", listen)):
            if value is not None:
                command += [option, value]
        self.signal = stop
        self.status = 0
        self.errors = tempfile.TemporaryFile("w+", errors="replace")
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=self.errors, text=True,
                                        env=environment(**variables),
                                        pass_fds=pass_fds)
        self.line = self.process.stdout.readline()
        match = re.fullmatch(r"Listening on ((https?)://(.*):(\d+)/RPC2|.*)\n", self.line)
        if not match:
            self.process.kill()
            self.process.communicate()
            raise AssertionError(f"{self.line}{self.printed()}")
        self.url, self.address, self.port = match[1], match[3], int(match[4] or 0)

    def printed(self):
        """What the host and the driver have printed on standard error up to now."""
        self.errors.flush()
        return os.pread(self.errors.fileno(), 1 << 26, 0).decode(errors="replace")

    def check(self):
        """Raises if the host has ended."""
        if self.process.poll() is not None:
            raise AssertionError(f"the host ended with status {self.process.returncode} and said:\n{self.printed()}")

    def stop(self):
        """Ends the host. Returns what it printed on standard output since it listened; raises if its end is another one
        than self.status says."""
        if self.process.poll() is None:
            self.process.send_signal(self.signal)
        try:
            output = self.process.communicate(timeout=30)[0]
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.communicate()
            raise
        if self.process.returncode != self.status:
            raise AssertionError(f"the host ended with status {self.process.returncode} and said:\n{self.printed()}")
        return output

    def close(self):
        """Stops the host and lets go of its files."""
        try:
            return self.stop()
        finally:
            self.errors.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()


def is_emulated(program):
    """Whether a script stands in the program's place, which runs it under emulation."""
    return pathlib.Path(program).read_bytes()[:2] == b"#!"
