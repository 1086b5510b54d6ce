"""The practice network as the watch at logon meets it: its clock is the system's, and each place has a password
of its own age."""

import datetime

from practice_network import PracticeNetwork

UTC = {"TZ": "UTC0"}
"""Programs that run with it share the clock of `moment`."""

LOCAL, SERVER, DOMAIN = "WORKBENCH", "ARCHIVE", "PRACTICE"
MAX_AGE = datetime.timedelta(days=42)


def moment(**later):
    """The present moment, or one that lies so much later, as the world file has it."""
    then = datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(**later)
    return then.strftime("%Y-%m-%dT%H:%M:%S")


def date(**later):
    """The same as the platform's floating date: days since 30 December 1899."""
    then = datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(**later)
    return (then - datetime.datetime(1899, 12, 30, tzinfo=datetime.timezone.utc)).total_seconds() / 86400


def places(world):
    """{name: the record of a computer or domain}"""
    network = world["network"]
    return {place["name"]: place for place in network["computers"] + network["domains"]}


def expires_in(world, name, **left):
    """Lets the password of a place expire so much later than now."""
    place = places(world)[name]
    place["policy"] = {"max_age_seconds": int(MAX_AGE.total_seconds())}
    set_at = datetime.datetime.now(datetime.timezone.utc) + datetime.timedelta(**left) - MAX_AGE
    place["accounts"][0]["password_set"] = set_at.strftime("%Y-%m-%dT%H:%M:%S")


class WatchedNetwork(PracticeNetwork):
    """All passwords last forty days more, but for what `change` does to the world."""

    def __init__(self, desktop, *changes):
        def change(world):
            world["clock"] = moment()
            for name in places(world):
                expires_in(world, name, days=40)
            for step in changes:
                step(world)
        super().__init__(desktop, change)
