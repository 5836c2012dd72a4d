"""Installs the build and runs what the documents tell a newcomer to paste, against the installed host and the simulated
chip: sessions.py CMAKE BUILD DOCUMENT...

A fenced block of `sh` or `python` is a session if a block of `text` comes next, which is what it must print. A block of
`xml` before another one is a document to post and its answer. A block of `console` that begins with `$ lmqctl` is one of
commands with what each prints; behind `lmqctl> ` stand the lines of a session. All sessions of a document run in their
order against a host of its own, in a folder that has what the repository has, with this build as `build/release`. Links to
files are followed too.
"""

import contextlib
import difflib
import functools
import http.client
import io
import os
import pathlib
import re
import socket
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent))
import hosting  # noqa: E402

ROOT = pathlib.Path(__file__).parents[2]
WRITTEN = "127.0.0.1:8080"  # the address in the documents, which gives way to the host's
EXPORTER = "127.0.0.1:9786"  # likewise, to one that is free
FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\((?!https?:)([^)#]+)")


def free_address():
    with contextlib.closing(socket.create_server(("127.0.0.1", 0))) as listener:
        return f"127.0.0.1:{listener.getsockname()[1]}"


def tree(folder, build):
    """Makes the folder in which the sessions run."""
    (folder / "build").mkdir(parents=True)
    for entry in ROOT.iterdir():
        if entry.name not in ("build", ".git"):
            (folder / entry.name).symlink_to(entry)
    (folder / "build" / "release").symlink_to(pathlib.Path(build).resolve())
    os.chdir(folder)


def shell(text, address):
    text = text.replace(WRITTEN, address).replace(EXPORTER, free_address())
    printed = subprocess.run(["bash", "-c", text], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True, timeout=60).stdout
    # What the linker thinks of the runtime of the sanitizers, where the driver was built with them.
    return re.sub(r"^.*ld: .*/lib[a-z]+san\.so.*\n", "", printed, flags=re.MULTILINE)


def python(text, address, names):
    output = io.StringIO()
    with contextlib.redirect_stdout(output):
        exec(compile(text.replace(WRITTEN, address), "session", "exec"), names)
    return output.getvalue()


def post(text, address):
    with contextlib.closing(http.client.HTTPConnection(address, timeout=60)) as connection:
        connection.request("POST", "/RPC2", text, {"Content-Type": "text/xml"})
        return connection.getresponse().read().decode()


def console(text, address):
    """The block again, with what its commands print now."""
    printed = ""
    blocks = re.split(r"^\$ ", text, flags=re.MULTILINE)[1:]
    for block in blocks:
        command, typed = block.split("\n", 1)[0], re.findall(r"^lmqctl> (.*)\n", block, re.MULTILINE)
        printed += f"$ {command}\n"
        # A session on a pipe shows no prompt; each of its lines is one of its own here.
        for line in typed or [None]:
            got = subprocess.run(["bash", "-c", command], input=line or "", stdout=subprocess.PIPE,
                                 stderr=subprocess.STDOUT, text=True, timeout=60,
                                 env=dict(os.environ, LMQ_URL=f"http://{address}/RPC2")).stdout
            printed += (f"lmqctl> {line}\n" if typed else "") + got
    return printed.replace(address, WRITTEN)


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
    names = {}  # what one session in Python defines, the next one knows
    runners = {("sh", "text"): shell, ("python", "text"): functools.partial(python, names=names), ("xml", "xml"): post}
    count, blocks = 0, list(FENCE.finditer(text))
    for block, answer in zip(blocks, [*blocks[1:], None]):
        if block[1] == "console" and block[2].startswith("$ lmqctl"):
            language, answer, session = "text", block, console
        else:
            language, session = block[1], runners.get((block[1], answer[1] if answer else ""))
        if session is None:
            continue
        count += 1
        line = text.count("\n", 0, answer.start()) + 1
        got = session(block[2], address)
        complaints += difflib.unified_diff(lines(language, answer[2]), lines(language, got),
                                           f"{document.name}:{line}", "what came", lineterm="")
    return count, complaints


def main(cmake, build, *documents):
    documents = [pathlib.Path(document).resolve() for document in documents]
    with tempfile.TemporaryDirectory() as prefix:
        subprocess.run([cmake, "--install", build, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL)
        folder = pathlib.Path(prefix, "bin")
        sys.path.insert(0, f"{prefix}/lib/python3/dist-packages")
        # Debian's Python first: another one may lack Debian's packages.
        kept = hosting.environment(PATH=f"{folder}:/usr/bin:{os.environ['PATH']}", XDG_CACHE_HOME=f"{prefix}/cache",
                                   PYTHONPATH=f"{prefix}/lib/python3/dist-packages", COLUMNS="120",
                                   HOME=prefix, XDG_RUNTIME_DIR=f"{prefix}/run", XDG_CONFIG_HOME=f"{prefix}/.config")
        os.environ.clear()
        os.environ.update(kept)
        tree(pathlib.Path(prefix, "tree"), build)
        results = [run(folder / "lmq-host", document) for document in documents]
    sessions = sum(count for count, _ in results)
    print(f"{sessions} sessions")
    return 1 if not sessions or not all(succeeded for _, succeeded in results) else 0


def run(host, document):
    """Returns the number of sessions and whether all of them came out as they are written."""
    # Time goes on by a second with each call, as if somebody typed them; what counts and draws is always the same.
    pathlib.Path("lmq.trace").unlink(missing_ok=True)
    with hosting.Host("--trace", "lmq.trace", program=host, LMQ_SIM_CLOCK="1000", LMQ_SIM_TRAFFIC="1:1000") as running:
        count, complaints = check(pathlib.Path(document), f"{running.address}:{running.port}")
    print("\n".join(complaints), end="\n" if complaints else "")
    return count, not complaints


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
