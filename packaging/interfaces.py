"""Reads what driver/com/PIMDriverAbstract.idl says, for all that is made of it: manifest, MSI, documents."""

import re
from dataclasses import dataclass, field

DUAL_PROXY = "{00020424-0000-0000-C000-000000000046}"
DISPATCH_PROXY = "{00020420-0000-0000-C000-000000000046}"


@dataclass
class Member:
    name: str
    id: int
    kind: str  # method, propget, propput
    arguments: list  # of (direction words, type, name)
    comment: str = ""


@dataclass
class Interface:
    name: str
    id: str
    help: str
    is_dual: bool
    members: list = field(default_factory=list)

    @property
    def proxy(self):
        return DUAL_PROXY if self.is_dual else DISPATCH_PROXY


@dataclass
class Library:
    name: str
    id: str
    version: str
    help: str
    interfaces: list
    class_name: str
    class_id: str
    class_help: str


def _braced(identifier):
    return "{" + identifier.upper() + "}"


def _attribute(attributes, name):
    found = re.search(name + r'\("?([^")]*)"?\)', attributes)
    return found.group(1) if found else ""


def _argument(text):
    directions, type_and_name = re.fullmatch(r"\[([^\]]*)\]\s*(.*)", text.strip(), re.S).groups()
    type_name, name = re.fullmatch(r"(.*?[\s*])(\w+)", type_and_name, re.S).groups()
    return [word.strip() for word in directions.split(",")], type_name.replace(" ", ""), name


def _members(body):
    pattern = re.compile(
        r"((?:^[ ]*//[^\n]*\n)*)^[ ]*\[(id\([^\]]*)\]\s*\w+\s+(\w+)\((.*?)\);", re.S | re.M)
    for comment, attributes, name, arguments in pattern.findall(body):
        kind = next((word for word in ("propget", "propput") if word in attributes), "method")
        words = " ".join(line.strip().lstrip("/ ") for line in comment.splitlines())
        parts = re.split(r",\s*(?=\[)", arguments) if arguments.strip() else []
        yield Member(name, int(_attribute(attributes, "id")), kind, [_argument(part) for part in parts], words)


def read(path):
    """The library in the file; a line that is not understood ends the program."""
    with open(path, encoding="ascii") as file:
        text = file.read()
    head = re.search(r"\[\s*(uuid.*?)\]\s*library (\w+)", text, re.S)
    interfaces = []
    for attributes, kind, name, body in re.findall(
            r"\[([^\[\]]*uuid\([^\[\]]*)\]\s*(interface|dispinterface) (\w+)[^{;]*\{(.*?)\n    \}", text, re.S):
        found = list(_members(body))
        if len(found) != body.count("[id("):
            raise SystemExit(f"{path}: {name} has members that packaging/interfaces.py does not understand")
        interfaces.append(Interface(name, _braced(_attribute(attributes, "uuid")),
                                    _attribute(attributes, "helpstring"), kind == "interface", found))
    attributes, class_name = re.search(r"\[([^\[\]]*)\]\s*coclass (\w+)", text).groups()
    return Library(head.group(2), _braced(_attribute(head.group(1), "uuid")), _attribute(head.group(1), "version"),
                   _attribute(head.group(1), "helpstring"), interfaces, class_name,
                   _braced(_attribute(attributes, "uuid")), _attribute(attributes, "helpstring"))
