#!/usr/bin/env python3
"""Prints the symbols that a shared library shows, a line for each class, record or function of a namespace.

usage: list-symbols.py LIBRARY

"type" stands for the type information and the table of the virtual operations, as far as there are. A symbol that
would keep the library loaded because it is unique in the process is marked with "(unique)".
"""

import collections
import re
import subprocess
import sys

STRING = "std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >"

def split(name):
    """The scope of a function or a variable, and its own name with its arguments."""
    name = name.replace("[abi:cxx11]", "")
    parts = re.fullmatch(r"(?:([^(]*)::)?((?:operator[^(]*|~?\w+(?:<.*>)?)(?:\(.*)?)", name)
    return parts.groups(default="") if parts else ("", name)


def shown(library):
    output = subprocess.run(
        ["nm", "--dynamic", "--defined-only", "--demangle", library], capture_output=True, text=True, check=True
    ).stdout
    scopes = collections.defaultdict(set)
    for line in output.splitlines():
        kind, name = re.fullmatch(r"[0-9a-f]+ (\S) (.*)", line).groups()
        of_type = re.fullmatch(r"(?:typeinfo|typeinfo name|vtable) for (.*)", name)
        scope, own = (of_type[1], "type") if of_type else split(name)
        scopes[scope].add(own + (" (unique)" if kind == "u" else ""))
    return scopes


for scope, names in sorted(shown(sys.argv[1]).items()):
    texts = [name.replace("zyr_top_api::", "").replace(STRING, "std::string") for name in names]
    texts.sort(key=lambda name: (name != "type", name))
    is_namespace = scope.rpartition("::")[2].islower()
    for line in texts if is_namespace else ["; ".join(texts)]:
        print(f"{scope}: {line}")
