"""What the package for fleets holds, as the source text that wixl reads."""

from xml.sax.saxutils import quoteattr

import product

SETUP_UNINSTALLER, SETUP_FOLDER = "SETUPUNINSTALLER", "SETUPFOLDER"
"""The properties that hold the path of the set-up program's uninstaller, and where that has installed."""
ENGLISH_HELP = "Help-1033.html"
SHORT_NAME = "Kestrel"


def element(name, *content, **attributes):
    given = "".join(" %s=%s" % (key, quoteattr(str(value))) for key, value in attributes.items())
    return "<%s%s>%s</%s>" % (name, given, "\n".join(content), name) if content else "<%s%s/>" % (name, given)


def both_names(name, short):
    """Windows Installer wants a name of eight and three letters beside each longer one."""
    return "%s|%s" % (short, name)


def component(name, *content):
    """A component's code stays the same in all versions, since it stands for the same thing in the same place."""
    return element("Component", *content, Id=name, Guid=product.code("component " + name))


def value(key, name, data, **more):
    kind = "integer" if isinstance(data, int) else "string"
    return element("RegistryValue", Root="HKLM", Key=key, Name=name, Type=kind, Value=data, **more)


def values_component(name, key, values):
    first, *others = values.items()
    return component(name, value(key, *first, KeyPath="yes"), *(value(key, *pair) for pair in others))


def found_in_record(property_name, name):
    """A property that takes its value from the record of an earlier installation."""
    search = element("RegistrySearch", Id="Find" + property_name, Root="HKLM", Key=product.RECORD_KEY, Name=name,
                     Type="raw")
    return element("Property", search, Id=property_name)


def record(program, version):
    values = {
        "DisplayName": product.NAME,
        "DisplayVersion": version.text,
        "DisplayIcon": "[INSTALLDIR]%s,0" % product.EXECUTABLE,
        "Publisher": product.PUBLISHER,
        "UrlInfoAbout": product.WEB_ADDRESS,
        "InstallLocation": "[INSTALLDIR]",
        "UninstallString": "[SystemFolder]msiexec.exe /x [ProductCode]",
        "QuietUninstallString": "[SystemFolder]msiexec.exe /x [ProductCode] /qn /norestart",
        "EstimatedSize": program.kilobytes(),
        "NoModify": 1,
        "NoRepair": 1,
    }
    return values_component("Record", product.RECORD_KEY, values)


def languages(program):
    values = program.language_values()
    return values_component("Languages", product.LANGUAGES_KEY, values) if values else ""


def file_identifier(name):
    return "File_" + name.replace("-", "_")


def file_component(name):
    identifier = file_identifier(name)
    shown = name
    if name.endswith(".html"):
        shown = both_names(name, name.replace("Help-", "H").replace(".html", ".htm"))
    return component(identifier, element("File", Id=identifier, Name=shown, Source=name, KeyPath="yes"))


def link(name, target, **more):
    return element("Shortcut", Id="Link_" + file_identifier(target), Directory="MENU", Name=name,
                   Target="[INSTALLDIR]" + target, WorkingDirectory="INSTALLDIR", **more)


def menu(program):
    links = [link(both_names(product.NAME, SHORT_NAME), product.EXECUTABLE, Arguments=product.WINDOW_SWITCH)]
    if ENGLISH_HELP in program.files:
        links.append(link(both_names(product.NAME + " Help", "Help"), ENGLISH_HELP))
    return component("Menu", *links, element("RemoveFolder", Id="RemoveMenu", On="uninstall"))


def folders(program, version):
    content = [*map(file_component, program.files), record(program, version), languages(program)]
    place = element("Directory", *content, Id="INSTALLDIR", Name=both_names(product.NAME, SHORT_NAME))
    menu_place = element("Directory", menu(program), Id="MENU", Name=both_names(product.NAME, SHORT_NAME))
    return element("Directory", element("Directory", place, Id="ProgramFilesFolder"),
                   element("Directory", menu_place, Id="ProgramMenuFolder"), Id="TARGETDIR", Name="SourceDir")


def feature(program):
    names = [*map(file_identifier, program.files), "Record", "Menu"]
    if program.language_values():
        names.append("Languages")
    return element("Feature", *(element("ComponentRef", Id=name) for name in names), Id="Whole", Level=1,
                   Title=product.NAME)


def earlier_setup():
    """The set-up program's uninstaller does its work before the package puts its own files and record there."""
    action = element("CustomAction", Id="RemoveSetup", Property=SETUP_UNINSTALLER,
                     ExeCommand="/S _?=[%s]" % SETUP_FOLDER, Execute="deferred", Impersonate="no", Return="check")
    when = element("Custom", SETUP_UNINSTALLER + " AND NOT Installed", Action="RemoveSetup",
                   After="InstallInitialize")
    return [found_in_record(SETUP_UNINSTALLER, "SetupUninstaller"),
            found_in_record(SETUP_FOLDER, "InstallLocation"), action,
            element("InstallExecuteSequence", when)]


def package_source(program, version):
    package = element("Package", InstallerVersion=200, Compressed="yes", InstallScope="perMachine",
                      Manufacturer=product.PUBLISHER, Description=product.NAME,
                      Comments="%s %s" % (product.NAME, version.text))
    upgrade = element("MajorUpgrade", DowngradeErrorMessage="A newer version of %s is installed." % product.NAME)
    content = [
        package,
        upgrade,
        element("Media", Id=1, Cabinet="files.cab", EmbedCab="yes"),
        element("Property", Id="ARPSYSTEMCOMPONENT", Value=1),
        found_in_record("INSTALLDIR", "InstallLocation"),
        *earlier_setup(),
        folders(program, version),
        feature(program),
    ]
    whole = element("Product", *content, Id=product.code("product " + version.text), Name=product.NAME,
                    Language=1033, Version=version.package(), Manufacturer=product.PUBLISHER,
                    UpgradeCode=product.UPGRADE_CODE)
    return element("Wix", whole, xmlns="http://schemas.microsoft.com/wix/2006/wi")
