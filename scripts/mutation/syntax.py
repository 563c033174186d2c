"""Reads a source with libclang: its expressions and statements, by offset, without what macros made."""

import os
import shlex
import subprocess

import clang.cindex as clang
from clang.cindex import CursorKind as Kind

clang.Config.set_library_file(os.environ.get("LIBCLANG", "/usr/lib/llvm-14/lib/libclang.so.1"))

FUNCTIONS = (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.FUNCTION_TEMPLATE,
             Kind.CONVERSION_FUNCTION)


class Source:
    """The text of a file, one character for each byte, so that libclang's offsets are its indices."""

    def __init__(self, root, name):
        self.root, self.name = root, name
        self.path = os.path.join(root, name)
        with open(self.path, encoding="latin-1", newline="") as file:
            self.text = file.read()

    def line_of(self, offset):
        return self.text.count("\n", 0, offset) + 1


class Node:
    """A cursor with its offsets and its children, all of one file. Children that stand in no place of their own,
    since the compiler or a macro made them, are left out."""

    def __init__(self, cursor, parent=None):
        self.cursor, self.parent, self.kind = cursor, parent, cursor.kind
        self.start, self.end = cursor.extent.start.offset, cursor.extent.end.offset

    def text(self, source):
        return source.text[self.start:self.end]


def included(translation, root):
    """The project's own headers that a translation unit includes."""
    names = {os.path.normpath(each.include.name) for each in translation.get_includes()}
    return {os.path.relpath(name, root) for name in names if name.startswith(root + os.sep)}


class Parser:
    """Parses with the compile commands of a configured build folder."""

    def __init__(self, root, commands):
        self.root = root
        self.index = clang.Index.create()
        self.commands = {}
        for entry in commands:
            name = os.path.relpath(entry["file"], root)
            self.commands.setdefault(name, entry)
        self.system = self._system_folders()

    @staticmethod
    def _system_folders():
        """libclang finds its own headers only by the compiler's help."""
        said = subprocess.run(["clang-14", "-E", "-x", "c++", "-v", "/dev/null"], capture_output=True, text=True,
                              check=True).stderr
        lines = said.split("search starts here:")[-1].split("End of search list")[0].split()
        return [word for folder in lines if folder.startswith("/") for word in ("-isystem", folder)]

    def parse(self, name):
        entry = self.commands[name]
        words, keep, skip = shlex.split(entry["command"]), [], False
        for at, word in enumerate(words[1:], 1):
            if skip:
                skip = False
            elif word in ("-o", "-c"):
                skip = True
            elif word == "-include" and words[at + 1].endswith("cmake_pch.hxx"):
                skip = True
                keep += self._headers_of_pch(words[at + 1])
            elif not word.startswith(("-W", "-fpch")):
                keep.append(word)
        translation = self.index.parse(
            entry["file"], args=keep + self.system,
            options=clang.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
        errors = [str(each) for each in translation.diagnostics if each.severity >= clang.Diagnostic.Error]
        if errors:
            raise RuntimeError(f"{name} does not parse:\n" + "\n".join(errors[:10]))
        return translation

    @staticmethod
    def _headers_of_pch(header):
        """CMake's header for precompiling has a pragma that hides all that it includes; its includes do not."""
        with open(header, encoding="utf-8") as file:
            lines = [line.split("#include", 1)[1].strip().strip('"<>') for line in file if "#include" in line]
        return [word for line in lines for word in ("-include", line)]


def macro_ranges(translation, source):
    ranges = []
    for cursor in translation.cursor.get_children():
        if cursor.kind == Kind.MACRO_INSTANTIATION and is_in(cursor, source):
            ranges.append((cursor.extent.start.offset, cursor.extent.end.offset))
    return ranges


def is_in(cursor, source):
    file = cursor.location.file
    return file is not None and os.path.normpath(file.name) == source.path


class Tree:
    """The nodes of one source of a translation unit."""

    def __init__(self, translation, source):
        self.source = source
        self.macros = macro_ranges(translation, source)
        self.tops = [Node(cursor) for cursor in translation.cursor.get_children()
                     if not cursor.kind.is_preprocessing() and is_in(cursor, source)]

    def children(self, node):
        found = []
        for cursor in node.cursor.get_children():
            if not is_in(cursor, self.source):
                continue
            child = Node(cursor, node)
            if node.start <= child.start <= child.end <= node.end and not self.is_from_macro(child):
                found.append(child)
        return found

    def is_from_macro(self, node):
        for start, end in self.macros:
            if start <= node.start < end and node.end <= end:
                return True
            if start < node.start < end or start < node.end < end:
                return True
        return False
