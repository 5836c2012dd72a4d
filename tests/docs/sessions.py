"""Installs the build and runs what the documents tell a newcomer to paste, against the installed host and the simulated
chip: sessions.py CMAKE BUILD DOCUMENT...

A fenced block of `sh` or `python` is a session if a block of `text` comes next, which is what it must print. A block of
`xml` before another one is a document to post and its answer. All sessions run in their order against one host. Links to
files are followed too.
"""

import contextlib
import difflib
import http.client
import io
import os
import pathlib
import re
import subprocess
import sys
import tempfile

WRITTEN = "127.0.0.1:8080"  # the address in the documents, which gives way to the host's
FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\((?!https?:)([^)#]+)")


def shell(text, address):
    text = text.replace(WRITTEN, address)
    return subprocess.run(["bash", "-c", text], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, timeout=60).stdout


def python(text, address):
    output = io.StringIO()
    with contextlib.redirect_stdout(output):
        exec(compile(text.replace(WRITTEN, address), "session", "exec"), {})
    return output.getvalue()


def post(text, address):
    with contextlib.closing(http.client.HTTPConnection(address, timeout=60)) as connection:
        connection.request("POST", "/RPC2", text, {"Content-Type": "text/xml"})
        return connection.getresponse().read().decode()


def lines(language, text):
    """What is compared: in XML, white space between the tags is only for the eye."""
    if language == "xml":
        text = re.sub(r">\s*<", ">\n<", text.strip())
    return [line.rstrip() for line in text.splitlines()]


def check(document, address):
    """Returns the number of sessions and a list of complaints."""
    text = document.read_text()
    complaints = [f"{document.name}: there is no {link}" for link in LINK.findall(FENCE.sub("", text))
                  if not (document.parent / link).exists()]
    runners = {("sh", "text"): shell, ("python", "text"): python, ("xml", "xml"): post}
    count, blocks = 0, list(FENCE.finditer(text))
    for block, answer in zip(blocks, blocks[1:]):
        language, expected = block[1], answer[2]
        session = runners.get((language, answer[1]))
        if session is None:
            continue
        count += 1
        line = text.count("\n", 0, answer.start()) + 1
        got = session(block[2], address)
        complaints += difflib.unified_diff(lines(language, expected), lines(language, got),
                                           f"{document.name}:{line}", "what came", lineterm="")
    return count, complaints


def main(cmake, build, *documents):
    with tempfile.TemporaryDirectory() as prefix:
        subprocess.run([cmake, "--install", build, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)
        # The sessions find the client, whose cache is no business of who runs the tests.
        os.environ["PATH"] = f"{prefix}/bin:{os.environ['PATH']}"
        os.environ["XDG_CACHE_HOME"] = f"{prefix}/cache"
        return run(pathlib.Path(prefix, "bin", "lmq-host"), documents)


def run(host, documents):
    process = subprocess.Popen([host, "--listen", "127.0.0.1:0"], stdout=subprocess.PIPE, text=True)
    try:
        address = re.fullmatch(r"Listening on http://(.*)/RPC2\n", process.stdout.readline())[1]
        results = [check(pathlib.Path(document), address) for document in documents]
    finally:
        process.terminate()
        process.wait(20)
    for _, complaints in results:
        print("\n".join(complaints), end="\n" if complaints else "")
    sessions = sum(count for count, _ in results)
    print(f"{sessions} sessions")
    return 1 if not sessions or process.returncode or any(complaints for _, complaints in results) else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
