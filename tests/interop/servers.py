"""Real servers to change passwords on: a directory controller and stand-alone servers, all Samba's.

    with Network() as network:
        network.controller.log_on("user", network.controller.first_password)

Each lives in an enclosure of its own and is the only server on the loopback there. Every server has the
account `user`, with a first password that is the server's own; policies differ.
"""

import json
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from enclosure import Enclosure

DOMAIN = "PRACTICE"
REALM = "PRACTICE.TEST"
USER = "user"
_FOLDERS = ["/etc/samba", "/var/lib/samba", "/var/cache/samba", "/var/log/samba", "/run"]
_CLIENT = Path(__file__).with_name("account_client.py")
_TICKS = 10_000_000
"""Of a second, in the directory's spans of time."""
_LONG = 100
_PATIENCE = 180
"""Seconds that a tool may take on a computer that has much else to do."""


HOME = "127.0.0.1"
"""Where every server is to be found in its own network."""


class Server:
    """One server. `names` are those that it answers to, in lower case and without backslashes. An operation of
    `call` that stands in `addresses` goes to that address of its network, any other to the server itself."""

    def __init__(self, name, names, first_password):
        self.name = name
        self.names = names
        self.first_password = first_password
        self.addresses = {}
        self.set_passwords = {}
        self.enclosure = Enclosure(_FOLDERS)
        try:
            self.tool(["mkdir", "-p", "/run/samba", "/var/lib/samba/private"])
            self._provision()
            self.start_service()
        except BaseException:
            self.close()
            raise

    def tool(self, argv, text=""):
        """Runs one of the server's own tools; what it prints."""
        result = self.enclosure.run(argv, text, timeout=_PATIENCE)
        if result.returncode != 0:
            raise RuntimeError(f"{self.name}: {' '.join(argv[:3])} failed: {result.stdout}{result.stderr}")
        return result.stdout

    def log_on(self, user, password):
        """Whether the password logs the user on, as another computer would. The client program reads no long
        password; the library that it stands on does."""
        if len(password) > _LONG:
            return self.call("log_on", user=user, password=password)["status"] == 0
        argv = ["smbclient", "//127.0.0.1/IPC$", "-s", "/dev/null", "-U", user, "-c", "exit"]
        result = self.enclosure.run(argv, password + "\n", network_only=True, variables={"PASSWD_FD": "0"})
        return result.returncode == 0

    def set_password(self, user, password):
        """Sets the password as the server's administrator, past the rules for users; `set_passwords` tells the last
        one of each."""
        self.set_passwords[user] = password
        self.tool(["smbpasswd", "-s", user], f"{password}\n{password}\n")

    def require_change(self, user):
        """From now on the user must change the password before anything else."""
        self.tool(["net", "sam", "set", "pwdmustchangenow", user, "yes"])

    def set_never_expires(self, user, never):
        """Whether the user's password stays in force however old it grows."""
        self.tool(["net", "sam", "set", "pwnoexp", user, "yes" if never else "no"])

    def call(self, operation, **arguments):
        """One account call over the network: the answer of account_client.py."""
        address = self.addresses.get(operation, HOME)
        request = json.dumps({"operation": operation, "address": address, **arguments}) + "\n"
        result = self.enclosure.run(
            ["/usr/bin/python3", "-P", str(_CLIENT)], request, network_only=True, timeout=120
        )
        if result.returncode != 0:
            raise RuntimeError(f"{self.name}: {operation} failed: {result.stderr}")
        return json.loads(result.stdout)

    def start_service(self):
        self._service = self.enclosure.spawn(self._SERVICE)
        deadline = time.monotonic() + 60
        while not self._listens():
            if self._service.poll() is not None or time.monotonic() > deadline:
                raise RuntimeError(f"{self.name} does not serve")
            time.sleep(0.1)

    def stop_service(self):
        """Ends the server's programs; its name is then one that nobody answers to."""
        self.tool(["sh", "-c", "kill -KILL $(ls /proc | grep -x '[0-9]*' | grep -vx -e 1 -e $$) || true"])
        self._service.wait(timeout=10)

    def close(self):
        self.enclosure.close()

    def _listens(self):
        """Whether the server answers a caller who gives no name: accounts may be in any state."""
        argv = ["smbclient", "-L", "127.0.0.1", "-s", "/dev/null", "-N"]
        return self.enclosure.run(argv, network_only=True).returncode == 0


class DirectoryController(Server):
    """The controller of the domain: at least 7 characters of several kinds, none of the last 24 passwords,
    42 days at the most."""

    _SERVICE = ["samba", "-i", "-M", "prefork"]
    _RULES = {
        "min_length": ("--min-pwd-length", "Minimum password length"),
        "min_age": ("--min-pwd-age", "Minimum password age (days)"),
        "max_age": ("--max-pwd-age", "Maximum password age (days)"),
        "history": ("--history-length", "Password history length"),
        "complexity": ("--complexity", "Password complexity"),
        "lockout": ("--account-lockout-threshold", "Account lockout threshold (attempts)"),
    }

    def __init__(self, name="DC1"):
        host = name.lower()
        super().__init__(name, {host, f"{host}.{REALM.lower()}"}, "First-practice-1")
        self.domain_names = {DOMAIN.lower(), REALM.lower()}
        self.dns_name = f"{host}.{REALM.lower()}"

    def _provision(self):
        self.tool(
            ["samba-tool", "domain", "provision", "--server-role=dc", "--dns-backend=SAMBA_INTERNAL"]
            + [f"--realm={REALM}", f"--domain={DOMAIN}", f"--host-name={self.name.lower()}"]
            + ["--host-ip=127.0.0.1", "--option=interfaces=lo", "--option=bind interfaces only=yes"]
        )
        # No resolver outside; and a password that was changed ends at once, not an hour later.
        self.tool(["sed", "-i", "/dns forwarder/d", "/etc/samba/smb.conf"])
        extra = "old password allowed period = 0\\nserver services = s3fs rpc ldap cldap kdc winbindd"
        self.tool(["sed", "-i", f"s/^\\[global\\]/[global]\\n{extra}/", "/etc/samba/smb.conf"])
        self.set_policy(min_age=0, min_length=7, complexity=True)
        self.tool(["samba-tool", "user", "create", USER, "--random-password"])
        self.set_password(USER, self.first_password)

    def policy(self):
        """The rules in force: characters, days, whether several kinds of characters are asked for, and
        after how many wrong passwords the account is locked (0: never)."""
        words = self.tool(["samba-tool", "domain", "passwordsettings", "show"])
        lines = dict(line.rsplit(": ", 1) for line in words.splitlines() if ": " in line)
        values = {rule: lines[words] for rule, (_, words) in self._RULES.items()}
        return {rule: value == "on" if rule == "complexity" else int(value) for rule, value in values.items()}

    def set_policy(self, **rules):
        words = {True: "on", False: "off"}
        options = [
            f"{self._RULES[rule][0]}={words[value] if rule == 'complexity' else value}"
            for rule, value in rules.items()
        ]
        self.tool(["samba-tool", "domain", "passwordsettings", "set", *options])

    def set_max_age(self, seconds):
        """The greatest age of a password, finer than the days of `set_policy`."""
        base = ",".join("DC=" + part for part in REALM.lower().split("."))
        change = f"dn: {base}\nchangetype: modify\nreplace: maxPwdAge\nmaxPwdAge: {-seconds * _TICKS}\n"
        self.tool(["ldbmodify", "-H", "/var/lib/samba/private/sam.ldb"], change)

    def set_disabled(self, user, disabled):
        self.tool(["samba-tool", "user", "disable" if disabled else "enable", user])

    def unlock(self, user):
        self.tool(["samba-tool", "user", "unlock", user])


class StandAloneServer(Server):
    """A server with accounts of its own: at least 5 characters, no other rule; passwords never grow old."""

    _SERVICE = ["smbd", "--foreground", "--no-process-group"]
    _SETTINGS = """[global]
netbios name = {name}
workgroup = WORKGROUP
server role = standalone server
interfaces = lo
bind interfaces only = yes
unix password sync = no
disable spoolss = yes
"""
    _DAY = 86400
    _FOR_EVER = 0xFFFFFFFF
    _RULES = {
        "min_length": ("min password length", 1),
        "min_age": ("minimum password age", _DAY),
        "max_age": ("maximum password age", _DAY),
        "history": ("password history", 1),
        "lockout": ("bad lockout attempt", 1),
    }

    def __init__(self, name="SERVER1", first_password="First-server-1"):
        super().__init__(name, {name.lower()}, first_password)

    def _provision(self):
        self._give_unix_account()
        self.tool(["tee", "/etc/samba/smb.conf"], self._SETTINGS.format(name=self.name))
        self.set_policy(min_length=5)
        self.tool(["smbpasswd", "-s", "-a", USER], f"{self.first_password}\n{self.first_password}\n")

    def _give_unix_account(self):
        """The account list that holds the user is laid over the computer's own, in this room only."""
        accounts = Path("/etc/passwd").read_text(encoding="utf-8")
        own = f"{accounts.rstrip()}\n{USER}:x:60001:65534::/nonexistent:/usr/sbin/nologin\n"
        self.tool(["tee", "/run/passwd"], own)
        self.tool(["mount", "--bind", "/run/passwd", "/etc/passwd"])

    def policy(self):
        """The rules in force, as with the controller; `max_age` None is for ever."""
        rules = {"complexity": False}
        for rule, (name, unit) in self._RULES.items():
            value = int(self.tool(["pdbedit", "-P", name]).rsplit(": ", 1)[1])
            rules[rule] = None if value == self._FOR_EVER else value // unit
        return rules

    def set_policy(self, **rules):
        for rule, value in rules.items():
            name, unit = self._RULES[rule]
            number = self._FOR_EVER if value is None else value * unit
            self.tool(["pdbedit", "-P", name, "-C", str(number)])

    def set_max_age(self, seconds):
        """The greatest age of a password, finer than the days of `set_policy`."""
        self.tool(["pdbedit", "-P", self._RULES["max_age"][0], "-C", str(seconds)])

    def set_disabled(self, user, disabled):
        self.tool(["smbpasswd", "-d" if disabled else "-e", user])

    def unlock(self, user):
        self.tool(["pdbedit", "-u", user, "-c", "[]", "-z"])


class Network:
    """A domain's controller, a stand-alone server and the user's own computer, made side by side."""

    def __init__(self):
        makers = [
            DirectoryController,
            StandAloneServer,
            lambda: StandAloneServer("DESK1", "First-desk-1"),
        ]
        with ThreadPoolExecutor() as workers:
            made = [workers.submit(maker) for maker in makers]
        failed = [work.exception() for work in made if work.exception()]
        self.servers = [work.result() for work in made if not work.exception()]
        if failed:
            self.close()
            raise failed[0]
        self.controller, self.server, self.desk = self.servers

    def close(self):
        for server in self.servers:
            server.close()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
