#!/usr/bin/python3
"""Takes out of a description of a library's interface, as abidw writes it, what the library's own headers do not lead to,
and where in the sources everything stands.

    abidw LIBRARY | prune-abi.py HEADER_FOLDER... > FILE
"""
import pathlib
import sys
import xml.etree.ElementTree as ElementTree

SCOPES = {"abi-instr", "namespace-decl"}
LOCATION = ("filepath", "line", "column")


def references(element):
    return {value for part in element.iter() for name, value in part.items() if name.endswith("type-id")}


def declarations(scope):
    """All that is declared directly in namespaces, with the element around it."""
    for child in scope:
        if child.tag in SCOPES:
            yield from declarations(child)
        elif scope.tag in SCOPES:
            yield scope, child


def is_own(declaration, headers):
    """Whether DECLARATION is exported, or stands in HEADERS: a type may be used by templates of others alone."""
    in_header = pathlib.PurePath(declaration.get("filepath", "")).name in headers
    return in_header or any("elf-symbol-id" in part.attrib for part in declaration.iter())


def reachable(everything, headers):
    """The library's own declarations, and those of types that they lead to."""
    holders = {}
    for declaration in everything:
        for part in declaration.iter():
            if "id" in part.attrib:
                holders.setdefault(part.get("id"), []).append(declaration)
    found = set()
    left = [declaration for declaration in everything if is_own(declaration, headers)]
    while left:
        declaration = left.pop()
        if declaration not in found:
            found.add(declaration)
            left += [holder for name in references(declaration) for holder in holders.get(name, [])]
    return found


def remove_empty_scopes(element):
    for child in list(element):
        remove_empty_scopes(child)
        if child.tag in SCOPES and len(child) == 0:
            element.remove(child)


def remove_locations(element):
    for part in element.iter():
        for name in LOCATION:
            part.attrib.pop(name, None)
        # abidiff wants one, but not that of the machine where this was made.
        if "path" in part.attrib:
            part.set("path", pathlib.PurePath(part.get("path")).name)


def main(*folders):
    headers = {path.name for folder in folders for path in pathlib.Path(folder).rglob("*.h")}
    description = ElementTree.parse(sys.stdin)
    pairs = list(declarations(description.getroot()))
    used = reachable([declaration for _, declaration in pairs], headers)
    for scope, declaration in pairs:
        if declaration not in used:
            scope.remove(declaration)
    remove_empty_scopes(description.getroot())
    remove_locations(description.getroot())
    description.write(sys.stdout, encoding="unicode")
    print()


main(*sys.argv[1:])
