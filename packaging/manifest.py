"""The manifest for use without registration: what the registry says of the driver, for one program alone."""

from xml.sax.saxutils import quoteattr

NAME = "Norvane.Zelbar00"


def text(library, version):
    interfaces = "".join(
        f"  <comInterfaceExternalProxyStub name={quoteattr(each.name)} iid=\"{each.id}\"\n"
        f"      proxyStubClsid32=\"{each.proxy}\"\n"
        f"      tlbid=\"{library.id}\"/>\n" for each in library.interfaces)
    return (
        '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
        '<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">\n'
        f'  <assemblyIdentity type="win32" name="{NAME}" version="{version}.0" processorArchitecture="x86"/>\n'
        '  <file name="zelbar00.dll">\n'
        f'    <comClass clsid="{library.class_id}" progid="zelbar00.{library.class_name}"\n'
        f'        description={quoteattr(library.class_help)} threadingModel="Apartment"\n'
        f'        tlbid="{library.id}"/>\n'
        f'    <typelib tlbid="{library.id}" version="{library.version}" helpdir=""/>\n'
        '  </file>\n'
        f'{interfaces}'
        '</assembly>\n')
