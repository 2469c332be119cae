"""What the packages say of themselves:

    contents_test.py VERSION FOLDER_OF_PACKAGES BUILT_PROGRAM_FOLDER SOURCE_TREE
"""

import gzip
import re
import subprocess
import sys
import tempfile
import unittest
from fnmatch import fnmatch
from pathlib import Path

VERSION = sys.argv[1]
PACKAGES, BUILT, SOURCES = (Path(path) for path in sys.argv[2:])


def output(*command):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True, text=True).stdout


def contents(folder):
    return {path.relative_to(folder): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def with_all_dependencies(packages):
    """These installed packages and all that they need, by their own names and by those that they stand for."""
    listed = output("dpkg-query", "-W", "-f", "${Package}|${Provides}|${Depends}, ${Pre-Depends}\\n")
    fields = [line.split("|", 2) for line in listed.splitlines()]
    needs = {package: depends for package, _, depends in fields}
    stands_for = {word.split()[0]: package for package, provides, _ in fields for word in provides.split(",") if word.strip()}
    found, waiting = set(), list(packages)
    while waiting:
        name = waiting.pop()
        package = name if name in needs else stands_for.get(name)
        if name in found or package is None:
            continue
        found |= {name, package}
        waiting += [re.split(r"[ :(]", word.strip())[0] for word in re.split(r"[,|]", needs[package]) if word.strip()]
    return found


def needed_by(file):
    return re.findall(r"NEEDED +(\S+)", output("objdump", "-p", file))


def package_of(library):
    return output("dpkg-query", "--search", f"*/{library}").split(":")[0]


class Contents(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.place = tempfile.TemporaryDirectory()
        cls.root = Path(cls.place.name)
        [cls.package] = PACKAGES.glob("*.deb")
        [cls.archive] = PACKAGES.glob("*.tar.gz")
        output("dpkg-deb", "-x", cls.package, cls.root)
        output("tar", "-xzf", cls.archive, "-C", cls.root)
        cls.share = cls.root / "usr/share"

    @classmethod
    def tearDownClass(cls):
        cls.place.cleanup()

    def test_names_one_version_everywhere(self):
        newest = re.search(r"^## (\S+)", (SOURCES / "CHANGELOG.md").read_text(), re.MULTILINE)[1]
        manuals = [gzip.open(file, "rt").read() for file in (self.share / "man/man1").iterdir()]
        self.assertEqual(len(manuals), 2)
        for told in (
            newest,
            output("dpkg-deb", "-f", self.package, "Version").split("-")[0],
            self.archive.name.split("-")[1],
            re.search(r'release version="([^"]*)"', (self.share / "metainfo/tavorine.metainfo.xml").read_text())[1],
            *(re.search(r'"Tavorine (\S+)"', manual)[1] for manual in manuals),
            re.search(r"^Tavorine (\S+)", (self.root / "Tavorine/README.txt").read_text())[1],
        ):
            self.assertEqual(told, VERSION)
        changes = output("dpkg-parsechangelog", "-l", self.unpacked("doc/tavorine/changelog.Debian.gz"), "-S", "Version")
        self.assertEqual(changes, output("dpkg-deb", "-f", self.package, "Version"))

    def test_holds_the_built_program_folder_twice(self):
        installed = contents(self.root / "usr/lib/tavorine")
        portable = contents(self.root / "Tavorine")
        self.assertEqual(installed.items() - portable.items(), set())
        texts = {Path(name) for name in ("README.txt", "CHANGELOG.md", "LICENCES.md")}
        texts |= {Path("lib") / (library.name.split(".")[0] + ".copyright") for library in self.libraries()}
        self.assertEqual(portable.keys() - installed.keys() - set(self.libraries()), texts)
        self.assertEqual(contents(BUILT / "help"), contents(self.root / "Tavorine/help"))

    def test_names_the_licence_of_every_library(self):
        licences = re.findall(r"`([^`]+)`", (self.root / "Tavorine/LICENCES.md").read_text())
        for program in ("Tavorine/Tavorine", "usr/bin/tavorine", "usr/bin/tavorine-publish"):
            for library in needed_by(self.root / program):
                self.assertTrue(any(fnmatch(library, known) for known in licences), f"{library} is not listed")

    def test_brings_libraries_along_or_names_packages_that_do(self):
        readme = (self.root / "Tavorine/README.txt").read_text()
        named = re.search(r"apt install (.*)", readme)[1].split()
        there = with_all_dependencies(named) | with_all_dependencies(["libc6", "libstdc++6"])
        brought = [package_of(path.name) for path in self.libraries()]
        asked_for = output("dpkg-deb", "-f", self.package, "Depends")
        publishing = ("libgd3", "libpng16-16")  # the archive has nothing for suppliers
        for package in (word.split()[0] for word in asked_for.split(",")):
            comes = package in there or package.startswith(publishing) or package in brought
            self.assertTrue(comes, f"{package} does not come")
        there |= with_all_dependencies(["dpkg"])
        for library in self.libraries():
            for needed in needed_by(self.root / "Tavorine" / library):
                self.assertIn(package_of(needed), there | set(brought), f"for {library}")
        self.assertNotIn("@", readme)

    def test_finds_the_libraries_that_it_brings(self):
        headers = output("objdump", "-p", self.root / "Tavorine/Tavorine")
        for library in self.libraries():
            self.assertRegex(headers, f"NEEDED +{re.escape(library.name)}\n")
        self.assertRegex(headers, r"RUNPATH +\$ORIGIN/lib\n")

    def test_is_understood_by_desktops(self):
        output("desktop-file-validate", self.share / "applications/tavorine.desktop")
        # Its name is all that the program has for an identity; there is no domain that it belongs to.
        known = {"cid-desktopapp-is-not-rdns", "url-homepage-missing"}
        report = subprocess.run(["appstreamcli", "validate", "--no-net", "--format=yaml",
                                 self.share / "metainfo/tavorine.metainfo.xml"], capture_output=True, text=True).stdout
        issues = re.findall(r'"?tag"?: "?([a-z-]+)"?,?\s+"?severity"?: "?([a-z]+)', report)
        self.assertIn("Passed", report)
        self.assertEqual({tag for tag, severity in issues if severity in ("warning", "error")} - known, set(), report)
        for size in (16, 48, 256):
            icon = self.share / f"icons/hicolor/{size}x{size}/apps/tavorine.png"
            self.assertEqual(int.from_bytes(icon.read_bytes()[16:20], "big"), size)
        self.assertTrue((self.share / "icons/hicolor/scalable/apps/tavorine.svg").exists())

    def libraries(self):
        folder = self.root / "Tavorine"
        return [path.relative_to(folder) for path in (folder / "lib").iterdir() if ".so" in path.name]

    def unpacked(self, name):
        text = self.root / "unpacked"
        text.write_bytes(gzip.open(self.share / name).read())
        return text


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
