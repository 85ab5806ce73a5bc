"""What packages say of Ovrin, held against Ovrin itself. Run by ctest, in the root of the sources."""

import configparser
import glob
import json
import os
import re
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree
from pathlib import Path

import yaml

VERSION = os.environ["OVRIN_VERSION"]
BIN = Path(os.environ["OVRIN_BIN"])
BUILD = Path(os.environ["OVRIN_BUILD"])
ID = "org.ovrin.Ovrin"

PROGRAMS = ["ovrin", "ovrin-cli", "ovrin-share"]
MANIFEST = Path(f"packaging/flatpak/{ID}.yml")
METAINFO = xml.etree.ElementTree.parse(f"packaging/desktop/{ID}.metainfo.xml").getroot()


def output(*command, **more):
    return subprocess.run([str(part) for part in command], check=True, capture_output=True, text=True, **more).stdout


def cmake_files():
    return [Path("CMakeLists.txt"), *Path("src").rglob("CMakeLists.txt"), *Path("packaging").rglob("CMakeLists.txt")]


def desktop_entry():
    entry = configparser.ConfigParser(interpolation=None)
    entry.optionxform = str
    entry.read(f"packaging/desktop/{ID}.desktop", encoding="utf-8")
    return entry


class Versions(unittest.TestCase):
    def test_every_program_tells_the_version(self):
        for program in [*PROGRAMS, "ovrin-browser-host"]:
            self.assertEqual(output(BIN / program, "--version"), f"{program} {VERSION}\n")

    def test_every_list_of_changes_begins_with_it(self):
        version, day = re.search(r"^## (\S+) \((\d{4}-\d\d-\d\d)\)$", Path("CHANGELOG.md").read_text(), re.M).groups()
        self.assertEqual(version, VERSION)
        release = METAINFO.find("releases")[0]
        self.assertEqual((release.get("version"), release.get("date")), (version, day))
        debian = Path("packaging/debian/changelog").read_text()
        self.assertTrue(debian.startswith(f"ovrin ({version}-1) "), debian)
        signed = re.search(r"^ -- .* <.*>  (.*)$", debian, re.M).group(1)
        self.assertEqual(output("date", "-u", "-d", signed, "+%F").strip(), day)

    def test_the_extension_has_it(self):
        manifest = json.loads((BUILD / "browser-extension/manifest.json").read_text())
        self.assertEqual(manifest["version"], VERSION)
        self.assertEqual(manifest["permissions"], ["activeTab", "scripting", "nativeMessaging"])


class Desktop(unittest.TestCase):
    def test_entry_and_metadata_are_valid(self):
        output("desktop-file-validate", f"packaging/desktop/{ID}.desktop")
        output("appstreamcli", "validate", "--no-net", f"packaging/desktop/{ID}.metainfo.xml")

    def test_everyone_uses_the_same_names(self):
        entry = desktop_entry()["Desktop Entry"]
        self.assertEqual(entry["Icon"], ID)
        self.assertEqual(entry["Exec"].split()[0], "ovrin")
        self.assertEqual(METAINFO.findtext("id"), ID)
        self.assertEqual(METAINFO.findtext("launchable"), f"{ID}.desktop")
        self.assertEqual(METAINFO.findtext("name"), entry["Name"])
        self.assertEqual(METAINFO.findtext("summary"), entry["Comment"])
        # What the metadata says is opened is what the entry opens.
        opened = {kind.text for kind in METAINFO.iter("mediatype")}
        self.assertLessEqual(opened, set(entry["MimeType"].split(";")))


class Manuals(unittest.TestCase):
    def test_every_program_has_one_without_a_fault(self):
        for program in PROGRAMS:
            page = Path(f"packaging/man/{program}.1")
            faults = subprocess.run(["man", "--warnings", "-E", "UTF-8", "-l", "-Tutf8", "-Z", page], capture_output=True,
                                    text=True, env={**os.environ, "LC_ALL": "C.UTF-8", "MANROFFSEQ": ""})
            self.assertEqual((faults.returncode, faults.stderr), (0, ""), program)

    def test_they_name_every_option(self):
        for program in PROGRAMS:
            page = Path(f"packaging/man/{program}.1").read_text().replace("\\-", "-")
            for option in re.findall(r"(--[a-z][a-z-]*)", output(BIN / program, "--help")):
                if option != "--help-all":  # Qt's own
                    self.assertIn(option, page, program)


class Installation(unittest.TestCase):
    """A tree installed elsewhere works by itself."""

    def test_what_is_installed_finds_its_helpers(self):
        with tempfile.TemporaryDirectory() as folder:
            prefix = Path(folder, "prefix")
            output("cmake", "--install", BUILD, "--prefix", prefix)
            installed = {str(path.relative_to(prefix)) for path in prefix.rglob("*") if path.is_file()}
            for wanted in [*(f"bin/{program}" for program in PROGRAMS),
                           *(f"share/man/man1/{program}.1" for program in PROGRAMS),
                           *(f"libexec/ovrin/{helper}" for helper in
                             ["document-reader", "page-renderer", "page-renderer-worker", "ovrin-notifier",
                              "ovrin-browser-host"]),
                           f"share/applications/{ID}.desktop", f"share/metainfo/{ID}.metainfo.xml",
                           f"share/icons/hicolor/scalable/apps/{ID}.svg", f"share/dbus-1/services/{ID}.service"]:
                self.assertIn(wanted, installed)
            self.assertNotIn("bin/draw-icon", installed)
            for manifest in glob.glob(f"{prefix}/**/org.ovrin.browser.json", recursive=True):
                self.assertEqual(json.loads(Path(manifest).read_text())["path"],
                                 f"{prefix}/libexec/ovrin/ovrin-browser-host")
            # The photo is made by the document reader, or not at all.
            pixel = ("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mP8z8BQDwAEhQGAhKmMIQAAAABJRU5ErkJggg==")
            page = Path("docs/example/page.html").read_text().replace(
                '"@type": "Recipe",', f'"@type": "Recipe", "image": "data:image/png;base64,{pixel}",')
            Path(folder, "page.html").write_text(page)
            draft = json.loads(output(prefix / "bin/ovrin-cli", "draft", "page.html", "--page-url", "https://a.example/",
                                      cwd=folder))
            self.assertTrue(draft["imageData"].startswith("/9j/"))


class Flatpak(unittest.TestCase):
    # Who provides what the build asks for: a module, or the runtime.
    PROVIDERS = {
        "Core": "qtbase", "Gui": "qtbase", "Network": "qtbase", "Concurrent": "qtbase", "DBus": "qtbase",
        "Qml": "qtdeclarative", "Quick": "qtdeclarative", "QuickControls2": "qtdeclarative", "Svg": "qtsvg",
        "QCoro6": "qcoro", "RapidJSON": "rapidjson", "libseccomp": "libseccomp", "vips": "libvips",
        "poppler-qt6": "poppler", "libecal-2.0": "evolution-data-server",
        "PkgConfig": None, "SQLite3": None, "Threads": None, "dbus-1": None, "gio-2.0": None, "gmodule-2.0": None,
        "libcanberra": None, "webkitgtk-6.0": None, "xcb": None,
    }
    VERSIONS = {"qtbase": "Qt6Core", "libvips": "vips", "poppler": "poppler-qt6", "libical": "libical",
                "evolution-data-server": "libecal-2.0", "libseccomp": "libseccomp"}

    def setUp(self):
        self.text = MANIFEST.read_text()
        self.manifest = yaml.safe_load(self.text)
        self.modules = {module["name"]: module for module in self.manifest["modules"]}

    def test_it_is_the_same_application(self):
        self.assertEqual(self.manifest["id"], ID)
        self.assertEqual(self.manifest["command"], desktop_entry()["Desktop Entry"]["Exec"].split()[0])
        self.assertEqual((MANIFEST.parent / self.modules["ovrin"]["sources"][0]["path"]).resolve(), Path.cwd())

    def test_it_asks_for_no_more_than_it_says_why(self):
        lines = self.text.splitlines()
        for permission in self.manifest["finish-args"]:
            above = lines.index(f"  - {permission}")
            while lines[above].startswith("  - "):
                above -= 1
            self.assertTrue(lines[above].startswith("  # "), permission)
            self.assertNotRegex(permission, r"--filesystem|--socket=(session|system)-bus|--device=all|=\*$|--allow")
        # Names on the bus are those that the program speaks to.
        sources = "".join(path.read_text() for path in Path("src").rglob("*") if path.suffix in (".cpp", ".h"))
        for name in re.findall(r"--talk-name=(\S+)", self.text):
            if "evolution" not in name:  # spoken to by a library
                self.assertTrue(f'"{name}"' in sources, name)

    def test_it_builds_what_the_build_asks_for(self):
        wanted = set()
        for file in cmake_files():
            text = file.read_text()
            wanted |= set(re.findall(r"pkg_check_modules\(\w+ REQUIRED IMPORTED_TARGET ([^\s)]+)\)", text))
            for package, components in re.findall(r"find_package\((\w+)[^)]*?(?:COMPONENTS ([^)]*))?\)", text):
                wanted |= set(components.split()) if package == "Qt6" else {package}
        self.assertIn("vips", wanted)
        for library in sorted(wanted):
            self.assertIn(library, self.PROVIDERS)
            if self.PROVIDERS[library]:
                self.assertIn(self.PROVIDERS[library], self.modules)

    def test_its_versions_are_those_that_are_tested(self):
        for name, library in self.VERSIONS.items():
            tag = self.modules[name]["sources"][0]["tag"]
            self.assertEqual(re.search(r"\d[\d.]*$", tag).group(), output("pkg-config", "--modversion", library).strip())
        for name, module in self.modules.items():
            if name.startswith("qt"):
                self.assertEqual(module["sources"][0]["tag"], self.modules["qtbase"]["sources"][0]["tag"], name)

    def test_its_options_are_options_of_ours(self):
        declared = "".join(file.read_text() for file in cmake_files())
        for option in self.modules["ovrin"]["config-opts"]:
            name = re.match(r"-D(\w+)=", option).group(1)
            self.assertTrue(name.startswith("CMAKE_") or re.search(rf"(option|set)\({name} ", declared), name)


if __name__ == "__main__":
    unittest.main()
