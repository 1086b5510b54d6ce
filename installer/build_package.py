"""Makes the package for fleets (Windows Installer) from all that the program's folder holds. The same content
gives the same bytes."""

import os
import pathlib
import shutil
import struct
import subprocess
import tempfile

import olefile

import package_source
import product

SUMMARY = "\x05SummaryInformation"
PACKAGE_CODE, CREATED, SAVED = 9, 12, 13
EPOCH = 315532800
"""The first day that a cabinet can tell, 1980, where the environment names no SOURCE_DATE_EPOCH."""
FILE_TIME_OF_1970 = 116444736000000000


def changes(version):
    """What wixl can't say, as queries: the order of the removal of an older package, ahead of the new files; the
    executable's version, without which an older one would count as newer; what is left of the set-up program;
    no search in the sequence of the windows, which has none, so that it is done with the rights of the
    installation."""
    return [
        "UPDATE `InstallExecuteSequence` SET `Sequence` = 1501 WHERE `Action` = 'RemoveExistingProducts'",
        "UPDATE `InstallExecuteSequence` SET `Sequence` = 1502 WHERE `Action` = 'RemoveSetup'",
        "UPDATE `File` SET `Version` = '%s', `Language` = '1033' WHERE `File` = '%s'"
        % (version.record(), package_source.file_identifier(product.EXECUTABLE)),
        "INSERT INTO `RemoveFile` (`FileKey`, `Component_`, `FileName`, `DirProperty`, `InstallMode`)"
        " VALUES ('SetupUninstaller', 'Record', 'kestre~1.exe|Kestrelmoor-uninstall.exe', 'INSTALLDIR', 1)",
        "DELETE FROM `InstallUISequence` WHERE `Action` = 'AppSearch'",
    ]


def stage(program, version, folder, time):
    """Puts the files beside the source text, where wixl looks for them, with one and the same date."""
    for name in program.files:
        shutil.copyfile(program.folder / name, folder / name)
        os.utime(folder / name, (time, time))
    source = folder / "package.wxs"
    source.write_text(package_source.package_source(program, version), encoding="utf-8")
    return source


def summary_places(stream):
    """{property number: place of its data behind the type}, of a stream with one section."""
    section = struct.unpack_from("<I", stream, 44)[0]
    count = struct.unpack_from("<I", stream, section + 4)[0]
    pairs = (struct.unpack_from("<II", stream, section + 8 + 8 * index) for index in range(count))
    return {number: section + place + 4 for number, place in pairs}


def settle_summary(path, code, time):
    """Puts a code and a date that follow from the content in the place of random and present ones."""
    with olefile.OleFileIO(str(path), write_mode=True) as file:
        stream = bytearray(file.openstream(SUMMARY).read())
        places = summary_places(stream)
        file_time = struct.pack("<Q", FILE_TIME_OF_1970 + time * 10000000)
        for number in (CREATED, SAVED):
            stream[places[number]:places[number] + 8] = file_time
        length = struct.unpack_from("<I", stream, places[PACKAGE_CODE])[0]
        if length != len(code) + 1:
            raise ValueError("%s: its package code has %d bytes" % (path, length))
        stream[places[PACKAGE_CODE] + 4:places[PACKAGE_CODE] + 4 + len(code)] = code.encode("ascii")
        file.write_stream(SUMMARY, bytes(stream))


def build_package(program, version, out_folder):
    """Returns the path of the package."""
    out_file = pathlib.Path(out_folder).resolve() / ("%s-%s.msi" % (product.NAME, version.text))
    time = max(EPOCH, int(os.environ.get("SOURCE_DATE_EPOCH", EPOCH)))
    with tempfile.TemporaryDirectory() as folder:
        source = stage(program, version, pathlib.Path(folder), time)
        made = pathlib.Path(folder) / "package.msi"
        environment = {**os.environ, "TZ": "UTC"}
        subprocess.run(["wixl", "--arch", "x86", "-o", made, source.name], cwd=folder, env=environment,
                       check=True)
        for query in changes(version):
            subprocess.run(["msibuild", made, "-q", query], env=environment, check=True)
        settle_summary(made, product.code("package %s %s" % (version.text, program.digest())), time)
        shutil.copyfile(made, out_file)
    return out_file
