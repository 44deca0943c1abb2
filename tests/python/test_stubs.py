"""The stubs say what there is."""

import ast
import inspect
import pathlib

import psgraphics
from psgraphics import _native


def stubbed():
    tree = ast.parse(pathlib.Path(psgraphics.__file__).with_name("_native.pyi").read_text())
    names = {}
    for node in tree.body:
        if isinstance(node, ast.ClassDef) and not node.name.startswith("_"):
            names[node.name] = {
                part.name if isinstance(part, ast.FunctionDef) else part.target.id
                for part in node.body if isinstance(part, (ast.FunctionDef, ast.AnnAssign))}
        elif isinstance(node, ast.FunctionDef):
            names[node.name] = None
    return names


def public(names):
    return {name for name in names if not name.startswith("_")}


def test_every_public_name_has_a_stub_and_a_documentation():
    stubs = stubbed()
    assert set(stubs) == public(vars(_native))
    for name, members in stubs.items():
        made = getattr(_native, name)
        if members is None:
            assert made.__doc__
        elif not issubclass(made, _native.Error):
            own = public(vars(made)) - {"name", "value"} if hasattr(made, "__members__") else \
                public(vars(made))
            assert own == public(members) - ({"name", "value"} if hasattr(made, "__members__")
                                             else set()), name
            assert inspect.getdoc(made), name
