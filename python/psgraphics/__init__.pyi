import os
from contextlib import AbstractContextManager
from dataclasses import dataclass
from types import TracebackType
from typing import BinaryIO, Dict, List, Optional, Sequence, Tuple, Type, Union

from . import _native
from ._native import *
from ._native import __version__ as __version__

_Output = Union[str, bytes, os.PathLike[str], _native.Stream, BinaryIO, None]

class _Document(_native.PSDocument):
    def page(self, width: float, height: float) -> AbstractContextManager[_Document]: ...
    def __exit__(self, kind: Optional[Type[BaseException]], error: Optional[BaseException],
                 trace: Optional[TracebackType]) -> None: ...

class PSDocument(_Document):
    def __init__(self, output: _Output = ..., kern_text: bool = ...) -> None: ...
    def __enter__(self) -> PSDocument: ...

class PrintDocument(_Document, _native.PrintDocument):
    def __init__(self, output: _Output = ..., *, form: _native.FileForm = ...,
                 colors: Optional[_native.ColorConverter] = ..., kerning: bool = ...,
                 embed_standard_fonts: bool = ..., keep_hints: bool = ...) -> None: ...
    def __enter__(self) -> PrintDocument: ...

class ConversionError(RuntimeError):
    code: int

@dataclass
class Simplification:
    sentence: str
    count: int
    element: str
    line: int
    column: int

@dataclass
class PageFont:
    name: str
    way: str
    stands_for: List[str]

@dataclass
class ConvertedPage:
    input: str
    width: float
    height: float
    fonts: List[PageFont]
    pictures: Dict[Tuple[int, int], int]
    simplified: List[Simplification]

@dataclass
class Conversion:
    pages: List[ConvertedPage]
    skipped: List[str]
    messages: List[str]

_Path = Union[str, bytes, os.PathLike[str]]

def convert(inputs: Union[_Path, BinaryIO, Sequence[Union[_Path, BinaryIO]]],
            output: Union[_Path, BinaryIO], *, program: Optional[str] = ...,
            words: Sequence[str] = ...,
            **options: Union[str, float, bool, None]) -> Conversion: ...

def join(parts: Sequence[_Path], output: _Path, *, program: Optional[str] = ...) -> List[str]: ...
