"""The MSI: the same files and the same keys as setup.exe for all users, for administrators who deploy by policy.

wixl writes the package; what it writes wrongly or not at all is put right by msibuild, and the times that both leave
in it are taken out.
"""

import struct
import subprocess
import uuid
from xml.sax.saxutils import quoteattr


INSTALL_KEY = r"Software\Norvane\7316\Install"
RUN_KEY = r"Software\Microsoft\Windows\CurrentVersion\Run"
SETUP_KEY = r"Software\Microsoft\Windows\CurrentVersion\Uninstall\Norvane Outlook driver"


def _class_values(library):
    """(key below Classes, name, value): what the driver writes when it registers itself."""
    class_key = rf"CLSID\{library.class_id}"
    program = f"zelbar00.{library.class_name}"
    library_key = rf"TypeLib\{library.id}\{library.version}"
    module = "[INSTALLDIR]zelbar00.dll"
    yield program, "", library.class_help
    yield rf"{program}\CLSID", "", library.class_id
    yield class_key, "", library.class_help
    yield rf"{class_key}\ProgID", "", program
    yield rf"{class_key}\Programmable", "", ""
    yield rf"{class_key}\TypeLib", "", library.id
    yield rf"{class_key}\InprocServer32", "", module
    yield rf"{class_key}\InprocServer32", "ThreadingModel", "Apartment"
    yield library_key, "", library.help
    yield rf"{library_key}\0\win32", "", module
    yield rf"{library_key}\FLAGS", "", "0"
    yield rf"{library_key}\HELPDIR", "", "[INSTALLDIR]"
    for each in library.interfaces:
        key = rf"Interface\{each.id}"
        yield key, "", each.name
        yield rf"{key}\ProxyStubClsid32", "", each.proxy
        yield rf"{key}\TypeLib", "", library.id
        yield rf"{key}\TypeLib", "Version", library.version


def _registry_value(key, name, value):
    named = f" Name={quoteattr(name)}" if name else ""
    return (f'<RegistryValue Root="HKLM" Key={quoteattr(key)}{named} Type="string" '
            f"Value={quoteattr(value)}/>")


class _Source:
    """The XML that wixl reads."""

    def __init__(self, folder, names, names_space):
        self.folder = folder
        self.space = names_space
        self.components = []
        self.tree = {}
        for name in names:
            *places, base = name.split("/")
            node = self.tree
            for place in places:
                node = node.setdefault(place, {})
            node[base] = name

    def guid(self, what):
        return "{" + str(uuid.uuid5(self.space, what)).upper() + "}"

    def directory(self, node, path):
        lines = []
        for name, child in node.items():
            identifier = "_" + uuid.uuid5(self.space, f"{path}/{name}").hex
            if isinstance(child, dict):
                lines.append(f'<Directory Id="{identifier}" Name={quoteattr(name)}>')
                lines += self.directory(child, f"{path}/{name}")
                lines.append("</Directory>")
                continue
            self.components.append(identifier)
            file_id = name if path == "" else identifier
            lines.append(f'<Component Id="{identifier}" Guid="{self.guid("file " + child)}">'
                         f'<File Id={quoteattr(file_id)} Name={quoteattr(name)} KeyPath="yes" '
                         f"Source={quoteattr(self.folder + chr(47) + child)}/></Component>")
        return lines

    def keys(self, library):
        values = [_registry_value("Software\\Classes\\" + key, name, value)
                  for key, name, value in _class_values(library)]
        return [f'<Component Id="Registration" Guid="{self.guid("registration")}">', *values, "</Component>",
                f'<Component Id="InstallDefaults" Guid="{self.guid("defaults")}">',
                _registry_value(INSTALL_KEY, "MultiUser", "[MULTIUSER]"), "</Component>",
                f'<Component Id="KeepCache" Guid="{self.guid("keep cache")}">',
                _registry_value(RUN_KEY, "Tessaria contact cache",
                                '"[SystemFolder]cmd.exe" /c start "" /min "[INSTALLDIR]fillcache.exe" --quiet'),
                "</Component>"]

    def text(self, version, library, upgrade_code):
        files = "\n".join(self.directory(self.tree, ""))
        keys = "\n".join(self.keys(library))
        references = "\n".join(f'<ComponentRef Id="{each}"/>'
                               for each in [*self.components, "Registration", "InstallDefaults"])
        return f"""<?xml version="1.0" encoding="utf-8"?>
<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">
<Product Id="{self.guid('product ' + version)}" UpgradeCode="{upgrade_code}" Name="Tessaria Outlook driver"
    Version="{version}" Manufacturer="Norvane" Language="1033">
<Package InstallerVersion="200" Compressed="yes" InstallScope="perMachine" Description="Tessaria Outlook driver"/>
<MajorUpgrade DowngradeErrorMessage="A newer version is installed. Remove it first if you want this one."/>
<Media Id="1" Cabinet="files.cab" EmbedCab="yes"/>
<Property Id="SETUPEXE"><RegistrySearch Id="SetupExe" Root="HKLM" Key="{SETUP_KEY}" Name="DisplayVersion"
    Type="raw"/></Property>
<Condition Message="The driver was installed here by setup.exe. Remove it in the settings of Windows first.">
    Installed OR NOT SETUPEXE</Condition>
<Property Id="MULTIUSER" Value="yes"><RegistrySearch Id="MultiUser" Root="HKLM" Key="{INSTALL_KEY}"
    Name="MultiUser" Type="raw"/></Property>
<Property Id="ARPNOMODIFY" Value="1"/>
<Directory Id="TARGETDIR" Name="SourceDir"><Directory Id="ProgramFilesFolder"><Directory Id="Company" Name="Norvane">
<Directory Id="INSTALLDIR" Name="Outlook driver">
{files}
{keys}
</Directory></Directory></Directory></Directory>
<Feature Id="Driver" Title="Driver and tools" Level="1">
{references}
</Feature>
<Feature Id="Cache" Title="Keep the contact cache current" Level="2"><ComponentRef Id="KeepCache"/></Feature>
</Product></Wix>
"""


def _query(path, *statements):
    for statement in statements:
        subprocess.run(["msibuild", str(path), "-q", statement], check=True)


def _correct(path, names, version, work, package_code):
    """Versions of the programs, so that an upgrade replaces them, and the package's own description."""
    codepage = work / "_ForceCodepage.idt"
    codepage.write_bytes(b"\r\n\r\n65001\t_ForceCodepage\r\n")
    subprocess.run(["msibuild", str(path), "-i", str(codepage)], check=True)
    for name in names:
        if name.endswith((".exe", ".dll")):
            _query(path, f"UPDATE `File` SET `Version`='{version}.0',`Language`='1033' WHERE `File`='{name}'",
                   f"DELETE FROM `MsiFileHash` WHERE `File_`='{name}'")
    # The company's folder goes if it is empty. What an administrator has set stays: the value is the component's key, and is not written over (128).
    _query(path, "INSERT INTO `RemoveFile` (`FileKey`,`Component_`,`FileName`,`DirProperty`,`InstallMode`) "
                 "VALUES ('Company','Registration','','Company',2)")
    _query(path, "UPDATE `Component` SET `Attributes`=132 WHERE `Component`='InstallDefaults'")
    subprocess.run(["msibuild", str(path), "-s", "Tessaria Outlook driver", "Norvane", "Intel;1033", package_code],
                   check=True)


def _without_times(path, moment):
    """Takes the hour of the making out of the compound file: in its folders, and in its description."""
    data = bytearray(path.read_bytes())
    sector = 1 << struct.unpack_from("<H", data, 30)[0]

    def place(number):
        return (number + 1) * sector

    table = []
    for number in struct.unpack_from("<109I", data, 76):
        if number < 0xFFFFFFF0:
            table += struct.unpack_from(f"<{sector // 4}I", data, place(number))
    number = struct.unpack_from("<I", data, 48)[0]
    while number < 0xFFFFFFF0:
        for entry in range(place(number), place(number) + sector, 128):
            data[entry + 100:entry + 116] = bytes(16)
        number = table[number]
    fixed = struct.pack("<Q", (moment + 11644473600) * 10000000)
    # The property set: 12 and 13 are the times of making and saving, each a type (64) and a FILETIME.
    start = data.find(bytes.fromhex("e0859ff2f94f6810ab9108002b27b3d9"))
    section = start - 28 + struct.unpack_from("<I", data, start + 16)[0]
    for index in range(struct.unpack_from("<I", data, section + 4)[0]):
        identifier, offset = struct.unpack_from("<II", data, section + 8 + 8 * index)
        if identifier in (12, 13):
            data[section + offset + 4:section + offset + 12] = fixed
    path.write_bytes(data)


def make(folder, names, out, work, version, library, upgrade_code, names_space, moment):
    source = _Source(folder.name, names, names_space)
    description = work / "driver.wxs"
    description.write_text(source.text(version, library, upgrade_code), encoding="utf-8")
    answer = subprocess.run(["wixl", "-o", str(out), description.name], cwd=work, capture_output=True,
                            text=True)  # it knows relative paths only
    if answer.returncode or answer.stderr:  # it goes on after what it has not understood
        raise SystemExit(f"wixl: {answer.stderr}")
    _correct(out, names, version, work, source.guid("package " + version))
    _without_times(out, moment)
