#!/usr/bin/python3
"""Prints, in C++'s own words, what the public headers of a folder promise to be in their library.

    promised-symbols.py FOLDER COMPILER_FLAGS...

That is every function and variable that is declared for export and not defined in the header itself, and of exported
classes what the compiler makes: type information, and the table of virtual functions where there is one.
"""
import pathlib
import subprocess
import sys

from clang.cindex import AvailabilityKind, CursorKind, Diagnostic, Index

NAMED = {
    CursorKind.FUNCTION_DECL,
    CursorKind.CXX_METHOD,
    CursorKind.CONSTRUCTOR,
    CursorKind.DESTRUCTOR,
    CursorKind.CONVERSION_FUNCTION,
    CursorKind.VAR_DECL,
}
CLASSES = {CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL}


def visibility(cursor):
    attributes = [child.spelling for child in cursor.get_children() if child.kind == CursorKind.VISIBILITY_ATTR]
    return attributes[0] if attributes else None


def is_elsewhere(cursor):
    """Whether a user of the header needs CURSOR from the library."""
    in_header = cursor.get_definition() or cursor.is_default_method() or cursor.is_pure_virtual_method()
    return not in_header and cursor.availability != AvailabilityKind.NOT_AVAILABLE


def is_polymorphic(cursor):
    children = list(cursor.get_children())
    bases = [child.referenced.get_definition() for child in children if child.kind == CursorKind.CXX_BASE_SPECIFIER]
    return any(child.is_virtual_method() for child in children) or any(map(is_polymorphic, bases))


def promised(cursors, inherited=None):
    """Mangled names, and those of type information in words. INHERITED is the visibility of the class around CURSORS."""
    for cursor in cursors:
        own = visibility(cursor) or inherited
        if cursor.kind == CursorKind.NAMESPACE:
            yield from promised(cursor.get_children())
        elif cursor.kind in CLASSES and cursor.is_definition():
            if own == "default" and is_polymorphic(cursor):
                yield from (what + cursor.type.spelling for what in ("vtable for ", "typeinfo for ", "typeinfo name for "))
            yield from promised(cursor.get_children(), own)
        elif cursor.kind in NAMED and own == "default" and is_elsewhere(cursor):
            yield cursor.mangled_name


def main(folder, *flags):
    headers = sorted(pathlib.Path(folder).resolve().glob("*.h"))
    source = "".join(f'#include "{header}"\n' for header in headers)
    unit = Index.create().parse("all.cpp", ["-x", "c++", "-std=c++17", *flags], [("all.cpp", source)])
    errors = [str(message) for message in unit.diagnostics if message.severity >= Diagnostic.Error]
    if errors:
        sys.exit("\n".join(errors))
    ours = (cursor for cursor in unit.cursor.get_children()
            if cursor.location.file and pathlib.Path(cursor.location.file.name).resolve() in headers)
    names = set(promised(ours))
    subprocess.run("c++filt", input="\n".join(sorted(names)) + "\n", text=True, check=True)


main(*sys.argv[1:])
