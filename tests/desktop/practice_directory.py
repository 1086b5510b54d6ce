"""The directory service of the practice network: a provider that is registered as the system's own one is."""

from desktop import OUT

_CLASS = "{B7A4C2D8-15F3-4E0C-8C56-93D1F0E27A4B}"
LIBRARY = {"directory.dll": OUT / "stand_ins" / "directory.dll"}
REGISTRATION = {
    "HKCR\\WinNT\\CLSID": {"": _CLASS},
    "HKCR\\CLSID\\%s\\InprocServer32" % _CLASS: {
        "": "C:\\windows\\system32\\directory.dll", "ThreadingModel": "Apartment",
    },
}


def install(world):
    """Gives a world's network its directory."""
    world["network"]["directory"] = {"present": True, "answers": []}


def fail(world, place, member, number, description=""):
    """Lets a member of the user's object fail: "GetObject" is the bind."""
    world["network"]["directory"]["answers"].append(
        {"name": place, "member": member, "number": number, "description": description})
