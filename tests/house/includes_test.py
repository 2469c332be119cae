#!/usr/bin/env python3
"""includes_test.py SOURCE ARROWS: holds the includes of every library's files against the arrows that its
CMakeLists.txt draws (cmake/library.cmake writes them to ARROWS): no include without an arrow, no arrow without an
include, no circle of libraries, folders or files."""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*"([^"]+)"', re.MULTILINE)
FEWEST_FILES = 100  # fewer are not the whole house


def read_libraries(arrows):
    libraries = {}
    for line in arrows.read_text().splitlines():
        name, folder, files, links = (part.strip() for part in line.split("|"))
        libraries[name] = {"folder": folder, "files": [f"{folder}/{file}" for file in files.split()],
                           "links": links.split()}
    return libraries


def owners(libraries):
    """Which library a header is of; one that is shown by several is of the smallest."""
    result = {}
    for name in sorted(libraries, key=lambda name: -len(libraries[name]["files"])):
        result.update((file, name) for file in libraries[name]["files"])
    return result


def check_includes(source, libraries, owner):
    complaints = []
    for name, library in libraries.items():
        used = set()
        for file in library["files"]:
            for included in INCLUDE.findall((source / file).read_text()):
                target = owner.get(included)
                if target is None:
                    complaints.append(f'{file} includes "{included}", which is no library\'s')
                elif target != name and target not in library["links"]:
                    complaints.append(f'{file} includes "{included}", but {name} does not link {target}')
                used.add(target)
        unused = [link for link in library["links"] if link in libraries and link not in used]
        complaints += [f"{name} links {link} and includes nothing of it" for link in unused]
    return complaints


def circle(arrows):
    """A path that comes back to where it began, or None."""
    done = set()

    def walk(node, path):
        if node in path:
            return path[path.index(node):] + [node]
        if node in done:
            return None
        found = next(filter(None, (walk(next_node, path + [node]) for next_node in sorted(arrows.get(node, ())))), None)
        done.add(node)
        return found

    return next(filter(None, (walk(node, []) for node in sorted(arrows))), None)


def check_circles(source, libraries):
    between_libraries = {name: [link for link in library["links"] if link in libraries]
                         for name, library in libraries.items()}
    between_folders = {}
    for name, links in between_libraries.items():
        folder = libraries[name]["folder"]
        targets = {libraries[link]["folder"] for link in links} - {folder}
        between_folders.setdefault(folder, set()).update(targets)
    between_files = {file: INCLUDE.findall((source / file).read_text())
                     for library in libraries.values() for file in library["files"]}
    circles = map(circle, (between_libraries, between_folders, between_files))
    return ["a circle: " + " -> ".join(found) for found in circles if found]


def main():
    source, arrows = map(pathlib.Path, sys.argv[1:])
    libraries = read_libraries(arrows)
    owner = owners(libraries)
    if len(owner) < FEWEST_FILES:
        sys.exit(f"only {len(owner)} files are found in {arrows}")
    complaints = check_includes(source, libraries, owner) + check_circles(source, libraries)
    sys.exit("\n".join(complaints) or None)


if __name__ == "__main__":
    main()
