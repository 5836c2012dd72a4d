"""What the tests of the package share: hosts with the simulated chip, and a cache of the tests' own.

LMQ_HOST, LMQ_PLUGIN, LMQ_DRIVER, LMQ_INTERFACE_JSON and LMQ_LAYOUT say where everything is.
"""

import os
import pathlib
import sys

import pytest

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parents[1] / "python"), str(HERE.parent), str(HERE.parent / "contract")]
import hosting  # noqa: E402

pytest_plugins = ["pytester"]


@pytest.fixture(scope="session", autouse=True)
def own_folders(tmp_path_factory):
    """Neither the cache nor the boards file of whoever runs the tests counts, nor what LMQ_URL says."""
    folder = tmp_path_factory.mktemp("home")
    os.environ.update(XDG_CACHE_HOME=str(folder / "cache"), XDG_CONFIG_HOME=str(folder / "config"))
    for name in ("LMQ_URL", "LMQ_BOARD", "LMQ_PASSWORD"):
        os.environ.pop(name, None)
    return folder


def serve(*options, **variables):
    """A host with the simulated chip."""
    return hosting.Host(*options, plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"],
                        **{"ASAN_OPTIONS": "detect_leaks=0", **variables})


@pytest.fixture
def host():
    with serve("--interface", os.environ["LMQ_INTERFACE_JSON"], LMQ_SIM_CLOCK="1") as running:
        yield running


@pytest.fixture
def idle(host):
    """A chip whose system was not started yet."""
    import lmq

    with lmq.connect(host.url) as chip:
        yield chip


@pytest.fixture
def up(idle):
    """A chip with its device up."""
    idle.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": 1}])
    return idle
