"""setup.exe: packaging/setup/setup.nsi with the list of files and the texts of all languages."""

import subprocess

LANGUAGES = ("english", "french", "german", "spanish", "hungarian", "polish", "dutch", "italian")


def _quoted(text):
    return '"' + text.replace('"', '$\\"') + '"'


def _texts(folder):
    """The wizard's languages, and our own texts in each; one that lacks a text ends the program."""
    lines, expected = [], None
    for language in LANGUAGES:
        lines.append(f'!insertmacro MUI_LANGUAGE "{language.capitalize()}"')
    for language in LANGUAGES:
        path = folder / f"{language}.txt"
        texts = dict(line.split("=", 1) for line in path.read_text(encoding="utf-8").splitlines()
                     if line and not line.startswith(";"))
        expected = expected or set(texts)
        if set(texts) != expected:
            raise SystemExit(f"{path}: lacks, or has alone: {', '.join(sorted(set(texts) ^ expected))}")
        for name, text in texts.items():
            lines.append(f"LangString {name} ${{LANG_{language.upper()}}} {_quoted(text)}")
    return "\n".join(lines) + "\n"


def _file_macros(folder, names):
    stage, each, current = [], [], None
    for name in names:
        place, _, base = name.replace("/", "\\").rpartition("\\")
        if place != current:
            stage.append(f'    SetOutPath "$Stage{chr(92) + place if place else ""}"')
            current = place
        stage.append(f'    File "/oname={base}" "{folder / name}"')
        path = name.replace("/", "\\")
        each += [f'    Push "{path}"', "    Call ${function}"]
    return ("!macro StageFiles\n" + "\n".join(stage) + "\n!macroend\n"
            "!macro EachFile function\n" + "\n".join(each) + "\n!macroend\n")


def make(root, folder, names, out, work, version, size, library, upgrade_code, icon, sign):
    (work / "texts.nsh").write_text(_texts(root / "packaging/setup/texts"), encoding="utf-8")
    (work / "files.nsh").write_text(_file_macros(folder, names), encoding="utf-8")
    defines = {"VERSION": version, "OUT": out, "FILES_NSH": work / "files.nsh", "TEXTS_NSH": work / "texts.nsh",
               "SIZE_KB": size, "CLASS_ID": library.class_id, "UPGRADE_CODE": upgrade_code, "ICON": icon}
    if sign:
        defines["SIGN"] = sign
    subprocess.run(["makensis", "-V2", "-WX", "-INPUTCHARSET", "UTF8",
                    *(f"-D{name}={value}" for name, value in defines.items()),
                    str(root / "packaging/setup/setup.nsi")], check=True)
