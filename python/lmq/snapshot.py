"""The settings of a chip, taken and put back.

A setting is what a pair of functions reads and sets: vx_watchdog_get and vx_watchdog_set. Both take the same arguments
before the setting itself, all of them ids with a known range. What is added and deleted (flows, bridges, groups) and
what is set without being readable is no setting; for those start a fresh chip.
"""

import fnmatch
import itertools
import math

from .errors import StatusError

MOST = 256  # settings of one kind; what there is more of is a table, such as one of all VLANs


def pairs(interface, pattern):
    """(getter, setter, ranges of the ids, name of the setting in the getter, in the setter) of all settings."""
    for setter, said in interface.methods.items():
        getter = setter[:-4] + "_get"
        if not setter.endswith("_set") or not fnmatch.fnmatchcase(setter, pattern) or getter not in interface.methods:
            continue
        *keys, new = said["arguments"]
        *read_keys, old = interface.methods[getter]["arguments"]
        ranges = [each.get("range") or interface.ids.get(each.get("id"), {}).get("range") for each in keys]
        alike = new["type"] == old["type"] and [(each["type"], each.get("id"), "in") for each in keys] == [
            (each["type"], each.get("id"), each["direction"]) for each in read_keys]
        is_read = old["direction"] == "out" and interface.methods[getter]["effect"] == "reads"
        if alike and is_read and all(ranges) and math.prod(high - low + 1 for low, high in ranges) <= MOST:
            yield getter, setter, ranges, old["name"], new["name"]


class Snapshot:
    """The settings as they were. Two of them are equal if all settings are."""

    def __init__(self, chip, pattern):
        self.chip, self.pattern, self.settings = chip, pattern, {}
        calls = []
        with chip.unchecked.batch() as batch:
            for getter, setter, ranges, old, new in pairs(chip.interface, pattern):
                for keys in itertools.product(*(range(low, high + 1) for low, high in ranges)):
                    calls.append((setter, keys, old, new, getattr(batch, getter)(*keys)))
        for setter, keys, old, new, future in calls:
            if not future.exception():
                self.settings[setter, keys] = new, getattr(future.result(), old)

    def __eq__(self, other):
        return isinstance(other, Snapshot) and self.settings == other.settings

    def __len__(self):
        return len(self.settings)

    def differences(self, other):
        """(setter, ids, here, there) of each setting that another snapshot has otherwise."""
        return [(*key, self.settings.get(key, (None, None))[1], other.settings.get(key, (None, None))[1])
                for key in {**self.settings, **other.settings} if self.settings.get(key) != other.settings.get(key)]

    def restore(self):
        """Sets what has changed since and can still be read. Returns (setter, ids, value) of what was set; what a
        driver refuses raises its status, after the rest was set."""
        done, refused = [], None
        for setter, keys, value, now in self.differences(Snapshot(self.chip, self.pattern)):
            if value is None or now is None:
                continue
            try:
                getattr(self.chip.unchecked, setter)(*keys, value)
                done.append((setter, keys, value))
            except StatusError as error:
                refused = refused or error
        if refused:
            raise refused
        return done
