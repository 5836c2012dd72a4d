"""Where a board is: a URL, or a name of the boards file that lmqctl reads too.

    [boards.rack2-01]
    url = "https://rack2-01:8443"
    user = "bench"
    cacert = "lab.pem"
    groups = ["rack2"]
"""

import collections
import os

from .errors import Error, did_you_mean


_FIELDS = ("url", "user", "password", "cacert", "cert", "key", "name", "groups", "password_command")


class Board(collections.namedtuple("Board", _FIELDS, defaults=[None] * 6 + [(), None])):
    """How one host is reached. A relative file name in the boards file is taken from the file's folder."""

    def password_of(self):
        """The password: given, of the environment, or what the board's command prints."""
        password = self.password or os.environ.get("LMQ_PASSWORD")
        if password is None and self.password_command:
            import subprocess

            password = subprocess.run(self.password_command, shell=True, stdout=subprocess.PIPE, check=True,
                                      text=True).stdout.rstrip("\n")
        return password


def files():
    home = os.environ.get("XDG_CONFIG_HOME") or os.path.join(os.path.expanduser("~"), ".config")
    return [os.path.join(home, "lmqctl/boards.toml"), "/etc/lmqctl/boards.toml"]


def load_toml(path):
    """A TOML file as a dict."""
    try:
        import tomllib
    except ModuleNotFoundError:
        try:
            import tomli as tomllib
        except ModuleNotFoundError:
            raise Error(f"{path}: reading it needs Python 3.11, or the package tomli") from None
    try:
        with open(path, "rb") as file:
            return tomllib.load(file)
    except (OSError, ValueError) as error:
        raise Error(f"{path}: {error}") from None


def known():
    """The boards of all boards files by name; the user's file comes before the machine's."""
    boards = {}
    for path in files():
        if not os.path.exists(path):
            continue
        for name, said in load_toml(path).get("boards", {}).items():
            if name in boards:
                continue
            if "url" not in said:
                raise Error(f"{path}: board {name} has no url")
            said = {key: os.path.join(os.path.dirname(path), os.path.expanduser(value))
                    if key in ("cacert", "cert", "key") else value for key, value in said.items()}
            said = {key.replace("-", "_"): value for key, value in said.items()}
            boards[name] = Board(**{"name": name, **{key: value for key, value in said.items() if key in _FIELDS}})
    return boards


def matching(pattern):
    """The boards whose name or group matches a pattern, in the order of the files; "all" matches all."""
    import fnmatch

    boards = known()
    found = [board for name, board in boards.items()
             if pattern == "all" or any(fnmatch.fnmatchcase(each, pattern) for each in (name, *board.groups))]
    if not found:
        raise Error(f"no board matches {pattern!r}{did_you_mean(pattern, boards)}")
    return found


def find(target=None, **given):
    """The board that a URL, ADDR:PORT or name stands for; what is given besides counts more than the file."""
    target = target or os.environ.get("LMQ_URL") or os.environ.get("LMQ_BOARD")
    if not target:
        raise Error("which board? Give a URL or a name, or set LMQ_URL")
    given = {key: str(value) for key, value in given.items() if value is not None}
    if target.startswith(("http://", "https://", "unix:")):
        board = Board(target)
    elif ":" in target:
        board = Board(f"http://{target}")
    else:
        boards = known()
        if target not in boards:
            raise Error(f"{target!r} is no URL and no board of {files()[0]}{did_you_mean(target, boards)}")
        board = boards[target]
    board = board._replace(**given)
    board = board._replace(url=board.url[:-5] if board.url.endswith("/RPC2") else board.url.rstrip("/"))
    return board._replace(password=board.password_of()) if board.user else board
