"""One account call to the server at the request's "address", by Samba's own client library.

Run inside a server's network, with the request as one JSON line on standard input, so that a password is on
no command line. Prints one JSON line: {"status": <NT status>} and, for a query that succeeded, "value".
"""

import json
import os
import socket
import struct
import sys
import time

from samba import NTSTATUSError, param
from samba.credentials import Credentials
from samba.crypto import arcfour_crypt_blob, des_crypt_blob_16, md4_hash_blob
from samba.dcerpc import lsa, samr

MAXIMUM_ALLOWED = 0x02000000
STATUS_WRONG_PASSWORD = 0xC000006A
STATUS_PASSWORD_RESTRICTION = 0xC000006C
STATUS_LOGON_FAILURE = 0xC000006D
STATUS_ACCOUNT_RESTRICTION = 0xC000006E
STATUS_PASSWORD_EXPIRED = 0xC0000071
STATUS_BAD_NETWORK_PATH = 0xC00000BE
STATUS_PASSWORD_MUST_CHANGE = 0xC0000224
NEVER = 0xFFFFFFFF
TICKS = 10_000_000
TICKS_TO_1970 = 11_644_473_600 * TICKS
NO_TIME = 0x7FFFFFFFFFFFFFFF

# Account control bits of the server, and the user flags of the network API that say the same.
_FLAG_OF_BIT = {
    samr.ACB_DISABLED: 0x0002,
    samr.ACB_HOMDIRREQ: 0x0008,
    samr.ACB_AUTOLOCK: 0x0010,
    samr.ACB_PWNOTREQ: 0x0020,
    samr.ACB_NORMAL: 0x0200,
    samr.ACB_PWNOEXP: 0x10000,
}
_UF_SCRIPT = 0x0001
_UF_PASSWD_CANT_CHANGE = 0x0040


def connect(address, user=None, password=None):
    """A connection to the account service, as the given user or as nobody. The library gives up when an
    answer takes a minute."""
    try:
        socket.create_connection((address, 445), timeout=10).close()
    except OSError as error:
        raise NTSTATUSError(STATUS_BAD_NETWORK_PATH, str(error)) from error
    settings = param.LoadParm()
    credentials = Credentials()
    credentials.guess(settings)
    if user is None:
        credentials.set_anonymous()
    else:
        credentials.set_username(user)
        credentials.set_password(password)
        credentials.set_domain("")
    return samr.samr(f"ncacn_np:{address}", settings, credentials)


def text(value):
    result = lsa.String()
    result.string = value
    return result


def log_on(request):
    connect(request["address"], request["user"], request["password"])


def check_old_password(address, user, password):
    """Raises where the account can't log on for another reason than that its password must be changed. The
    change itself is no test of that: the server grants it to a disabled account."""
    try:
        connect(address, user, password)
    except NTSTATUSError as error:
        status = error.args[0] & 0xFFFFFFFF
        if status == STATUS_LOGON_FAILURE:
            raise NTSTATUSError(STATUS_WRONG_PASSWORD, "no log-on with the old password") from error
        if status not in (STATUS_PASSWORD_EXPIRED, STATUS_PASSWORD_MUST_CHANGE):
            raise


def change_password(request):
    address = request["address"]
    check_old_password(address, request["user"], request["old"])
    old = request["old"].encode("utf-16-le")
    new = request["new"].encode("utf-16-le")
    if len(new) > 512:
        raise NTSTATUSError(STATUS_PASSWORD_RESTRICTION, "longer than the record that carries it")
    old_hash, new_hash = md4_hash_blob(old), md4_hash_blob(new)
    record = samr.CryptPassword()
    padded = os.urandom(512 - len(new)) + new + struct.pack("<I", len(new))
    record.data = list(arcfour_crypt_blob(padded, old_hash))
    verifier = samr.Password()
    verifier.hash = list(des_crypt_blob_16(old_hash, new_hash[:14]))
    # As nobody: an account whose password must be changed can't log on first.
    service = connect(address)
    try:
        service.ChangePasswordUser3(
            text(f"\\\\{address}"), text(request["user"]), record, verifier, 0, None, None, None
        )
    except NTSTATUSError as error:
        # A stand-alone server's word for a change that comes too soon.
        if error.args[0] & 0xFFFFFFFF == STATUS_ACCOUNT_RESTRICTION:
            raise NTSTATUSError(STATUS_PASSWORD_RESTRICTION, "must not change yet") from error
        raise


def open_domain(service):
    server = service.Connect2(None, MAXIMUM_ALLOWED)
    names = [entry.name for entry in service.EnumDomains(server, 0, 1000)[1].entries]
    name = next(name for name in names if name.string != "Builtin")
    return service.OpenDomain(server, MAXIMUM_ALLOWED, service.LookupDomain(server, name))


def user_info(request):
    service = connect(request["address"], request["session_user"], request["session_password"])
    domain = open_domain(service)
    ids, _ = service.LookupNames(domain, [text(request["user"])])
    user = service.OpenUser(domain, MAXIMUM_ALLOWED, ids.ids[0])
    info = service.QueryUserInfo(user, 21)
    now = int(time.time() * TICKS) + TICKS_TO_1970
    flags = _UF_SCRIPT
    for bit, flag in _FLAG_OF_BIT.items():
        if info.acct_flags & bit:
            flags |= flag
    if info.allow_password_change >= NO_TIME and info.last_password_change != 0:
        flags |= _UF_PASSWD_CANT_CHANGE
    never_expires = info.acct_flags & samr.ACB_PWNOEXP
    return {
        "password_age": min((now - info.last_password_change) // TICKS, NEVER),
        "flags": flags,
        "password_expired": int(not never_expires and info.force_password_change <= now),
    }


def seconds(span):
    """Seconds of a span as the server keeps it (negative ticks); none set is for ever."""
    return NEVER if span in (0, -0x8000000000000000) else -span // TICKS


def modals(request):
    service = connect(request["address"], request["session_user"], request["session_password"])
    info = service.QueryDomainInfo(open_domain(service), 1)
    return {
        "min_passwd_len": info.min_password_length,
        "max_passwd_age": seconds(info.max_password_age),
    }


def main():
    request = json.loads(sys.stdin.readline())
    operation = {
        "log_on": log_on,
        "change_password": change_password,
        "user_info": user_info,
        "modals": modals,
    }
    try:
        value = operation[request["operation"]](request)
        answer = {"status": 0, "value": value}
    except NTSTATUSError as error:
        answer = {"status": error.args[0] & 0xFFFFFFFF}
    print(json.dumps(answer))


if __name__ == "__main__":
    main()
