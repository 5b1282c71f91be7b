#!/usr/bin/python3
"""Takes out of a description of a library's interface, as abidw writes it, what no exported function or variable uses.

    abidw LIBRARY | prune-abi.py > FILE
"""
import sys
import xml.etree.ElementTree as ElementTree

SCOPES = {"abi-instr", "namespace-decl"}


def references(element):
    return {value for part in element.iter() for name, value in part.items() if name.endswith("type-id") or name == "type-id"}


def declarations(scope):
    """All that is declared directly in namespaces, with the element around it."""
    for child in scope:
        if child.tag in SCOPES:
            yield from declarations(child)
        elif scope.tag in SCOPES:
            yield scope, child


def is_exported(declaration):
    return any("elf-symbol-id" in part.attrib for part in declaration.iter())


def reachable(everything):
    """The declarations that are exported, and those of types that they lead to."""
    holders = {}
    for declaration in everything:
        for part in declaration.iter():
            if "id" in part.attrib:
                holders.setdefault(part.get("id"), []).append(declaration)
    found = set()
    left = [declaration for declaration in everything if is_exported(declaration)]
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


description = ElementTree.parse(sys.stdin)
pairs = list(declarations(description.getroot()))
used = reachable([declaration for _, declaration in pairs])
for scope, declaration in pairs:
    if declaration not in used:
        scope.remove(declaration)
remove_empty_scopes(description.getroot())
description.write(sys.stdout, encoding="unicode")
print()
