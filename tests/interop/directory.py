"""What the directory's provider for "WinNT" paths makes of a server's answers: the user's object of a place.

A bind asks the server for the account, in the user's session, and fails as that does. The members are read
from the account and the policy anew at each call. Dates are in universal time.
"""

import datetime

PROPERTY_NOT_FOUND = 0x8000500D
"""E_ADS_PROPERTY_NOT_FOUND, from Microsoft's header adserr.h."""
UF_PASSWORD_EXPIRED = 0x800000
_NEVER = 0xFFFFFFFF
_DAY_ZERO = datetime.datetime(1899, 12, 30, tzinfo=datetime.timezone.utc)
_SECONDS_OF_DAY = 86400


class Directory:
    """Answers the calls of the directory's stand-in; "path" is "WinNT://NAME/user,user"."""

    def __init__(self, bridge):
        self._bridge = bridge

    def answer(self, request):
        place, _, rest = request["path"].removeprefix("WinNT://").partition("/")
        server = self._bridge.server_of_place(place)
        return self.CALLS[request["call"]](self, server, rest.partition(",")[0], request)

    def _account(self, server, user):
        return self._bridge.query(server, "user_info", user=user)

    def _bind(self, server, user, _request):
        return {"code": self._account(server, user)["code"]}

    def _attribute(self, server, user, request):
        account = self._account(server, user)
        if account["code"] != 0:
            return account
        expired = account["password_expired"]
        flags = account["flags"] | (UF_PASSWORD_EXPIRED if expired else 0)
        return {"code": 0, "value": {"UserFlags": flags, "PasswordExpired": expired}[request["name"]]}

    def _expiration_date(self, server, user, _request):
        account, policy = self._account(server, user), self._bridge.query(server, "modals")
        for answer in (account, policy):
            if answer["code"] != 0:
                return answer
        if policy["max_passwd_age"] == _NEVER:
            return {"code": PROPERTY_NOT_FOUND}
        now = (datetime.datetime.now(datetime.timezone.utc) - _DAY_ZERO).total_seconds()
        seconds = now + policy["max_passwd_age"] - account["password_age"]
        return {"code": 0, "value": seconds / _SECONDS_OF_DAY}

    def _minimum_length(self, server, _user, _request):
        policy = self._bridge.query(server, "modals")
        return policy if policy["code"] != 0 else {"code": 0, "value": policy["min_passwd_len"]}

    def _change(self, server, user, request):
        return self._bridge.change_password(server, user, request["oldpassword"], request["newpassword"])

    CALLS = {
        "GetObject": _bind,
        "IADsUser.Get": _attribute,
        "IADsUser.PasswordExpirationDate": _expiration_date,
        "IADsUser.PasswordMinimumLength": _minimum_length,
        "IADsUser.ChangePassword": _change,
    }
