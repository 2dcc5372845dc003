#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a text of the code is missing from a catalog or not translated there, has lost a placeholder, or is
no text of the code any more; when words that people read have not gone through `Texts::tr`; and when the desktop's
files lack a language."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

PLACEHOLDER = re.compile(r"%(?:\d|n)")
WORDS = re.compile(r'u"(?:[^"\\]|\\.)*[a-z]{2} (?:[^"\\]|\\.)*"')
# What is logged, printed by the command, stored or handed to programs, and what the fakes of the platform say.
NO_TEXTS = re.compile(r"Shell/(main|InstanceBus|UpdateActivation|UpdateDebugLog)|Catalog/|SessionDisplay"
                      r"|PropertyList|SettingsTable|LinuxFileManager|Sway(Shortcuts|Bindings)|ExportIcons|NullServices|ThemePreset")
NO_TEXT = re.compile(r"qC(Warning|Info|Debug)|^\s*//|nop tavik-launcher|bind = |%1 --|Tavik Launcher ?(Settings\.json)?\"|Library\{|<<")


def faults_of(catalog, updated):
    for message in xml.parse(updated).iter("message"):
        source, translation = message.findtext("source"), message.find("translation")
        said = [form.text or "" for form in translation.iter("numerusform")] or [translation.text or ""]
        if translation.get("type") or not all(said):
            yield f"{catalog.name}: {translation.get('type') or 'empty'}: {source}"
        for text in said:
            if sorted(PLACEHOLDER.findall(text)) != sorted(PLACEHOLDER.findall(source)):
                yield f"{catalog.name}: other placeholders: {source}"
            if text != text.strip():
                yield f"{catalog.name}: blanks around it: {source}"


def faults_of_desktop_files(folder, languages):
    entry = (folder / "org.tavik.Launcher.desktop.in").read_text()
    for key, value in re.findall(r"^(Name|GenericName|Comment|Keywords)=(.*)\n", entry, re.M):
        said = re.search(rf"^{key}={re.escape(value)}\n((?:{key}\[\w+\]=.+\n)*)", entry, re.M)[1]
        if value != "Tavik Launcher" and set(re.findall(r"\[(\w+)\]", said)) != languages:
            yield f"the desktop entry lacks a language: {value}"
    told = re.findall(r"<(summary|p|li)(?: xml:lang=\"(\w+)\")?>", (folder / "org.tavik.Launcher.metainfo.xml.in").read_text())
    for tag in ("summary", "p", "li"):
        count = told.count((tag, ""))
        if count == 0 or any(told.count((tag, language)) != count for language in languages):
            yield f"the metainfo lacks a language: {tag}"
    for language in languages:
        if not (folder / "man" / f"tavik-launcher.{language}.1.in").exists():
            yield f"there is no manual page in {language}"


def faults(root, lupdate):
    sources = root / "Sources"
    catalogs = sorted((root / "Resources" / "translations").glob("*.ts"))
    yield from faults_of_desktop_files(root / "Packaging" / "Linux", {catalog.stem[-2:] for catalog in catalogs})
    with tempfile.TemporaryDirectory() as folder:
        for catalog in catalogs:
            updated = pathlib.Path(shutil.copy(catalog, folder))
            subprocess.run([lupdate, "-silent", "-locations", "none", "-I", sources, "-recursive", sources, "-ts", updated],
                           check=True)
            yield from faults_of(catalog, updated)
    for file in sorted(sources.rglob("*.cpp")):
        if NO_TEXTS.search(str(file)):
            continue
        lines = file.read_text().splitlines()
        for number, line in enumerate(lines, 1):
            before = lines[number - 2] if number > 1 else ""
            if WORDS.search(line) and not NO_TEXT.search(line) and not NO_TEXT.search(before):
                yield f"{file.relative_to(root)}:{number}: not translated: {line.strip()}"


found = list(faults(pathlib.Path(sys.argv[1]), sys.argv[2]))
print("\n".join(found))
sys.exit(1 if found else 0)
