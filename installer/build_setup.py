"""Makes the set-up program from all that the program's folder holds.

The environment may name SIGN_COMMAND: the command to which the uninstaller's file is given before it is packed.
"""

import os
import pathlib
import subprocess
import tempfile

import product

SCRIPT = pathlib.Path(__file__).resolve().parent / "setup" / "kestrelmoor.nsi"
ICON = product.ROOT / "resources" / "Moorlink.ico"


def macro(name, lines):
    return "!macro %s\n%s!macroend\n" % (name, "".join("  %s\n" % line for line in lines))


def files_script(program):
    """Macros that install, list and delete what the program's folder holds."""
    values = program.language_values()
    key = product.LANGUAGES_KEY
    return "".join([
        macro("INSTALL_FILES", ['File "%s"' % (program.folder / name) for name in program.files]),
        macro("DELETE_FILES", ['Delete "$INSTDIR\\%s"' % name for name in program.files]),
        macro("WRITE_LANGUAGES",
              ['WriteRegStr HKLM "%s" "%s" "%s"' % (key, *pair) for pair in values.items()]),
        macro("DELETE_LANGUAGES", ['DeleteRegValue HKLM "%s" "%s"' % (key, name)
                                   for name in values if name != product.FIRST_LANGUAGE]),
    ])


def defines(program, version, out_file, script):
    names = {
        "NAME": product.NAME,
        "PUBLISHER": product.PUBLISHER,
        "WEB_ADDRESS": product.WEB_ADDRESS,
        "EXECUTABLE": product.EXECUTABLE,
        "WINDOW_SWITCH": product.WINDOW_SWITCH,
        "VERSION_TEXT": version.text,
        "VERSION_RECORD": version.record(),
        "RECORD_KEY": product.RECORD_KEY,
        "FIRST_LANGUAGE": product.FIRST_LANGUAGE,
        "LANGUAGES_KEY": product.LANGUAGES_KEY,
        "SETTINGS_KEY": product.SETTINGS_KEY,
        "PUBLISHER_KEY": product.SETTINGS_KEY.rpartition("\\")[0],
        "UPGRADE_CODE": product.UPGRADE_CODE,
        "KILOBYTES": program.kilobytes(),
        "ICON": ICON,
        "FILES_SCRIPT": script,
        "OUT_FILE": out_file,
    }
    if os.environ.get("SIGN_COMMAND"):
        names["SIGN_COMMAND"] = os.environ["SIGN_COMMAND"]
    return ["-D%s=%s" % pair for pair in names.items()]


def build_setup(program, version, out_folder):
    """Returns the path of the set-up program."""
    out_file = pathlib.Path(out_folder).resolve() / ("%s-%s-setup.exe" % (product.NAME, version.text))
    with tempfile.TemporaryDirectory() as folder:
        script = pathlib.Path(folder) / "files.nsh"
        script.write_text(files_script(program), encoding="utf-8")
        names = defines(program, version, out_file, script)
        subprocess.run(["makensis", "-V2", "-WX", "-INPUTCHARSET", "UTF8", *names, SCRIPT], check=True)
    return out_file
