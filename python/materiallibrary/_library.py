"""Libraries and their materials."""

from __future__ import annotations

import ctypes
import difflib
import errno
import math
import os
from collections.abc import ItemsView, Iterable, Iterator, KeysView, Sequence
from typing import TYPE_CHECKING, Literal, Optional, TypeVar, Union, overload

from . import _native
from ._errors import Diagnostic, MaterialFileError, UnknownMaterialError
from ._material import Material, _code
from ._types import KINDS, TECHNOLOGIES, Kind, Technology

_ERRORS = ("raise", "keep", "empty")
_OPEN_ERROR_EMPTIES = 1
_WRITE_REPLACE = 1

Path = Union[str, "os.PathLike[str]"]
Errors = Literal["raise", "keep", "empty"]
_Default = TypeVar("_Default")
# A Sequence whose "in" takes names too: a type checker would refuse these of a declared one.
if TYPE_CHECKING:
    _Base = object
else:
    _Base = Sequence


def open(*paths: Path, errors: Errors = "raise", encoding: str = "utf-8") -> Library:
    """Reads the materials of files, in the order given.

    ``errors`` says what a bad file means: "raise" a MaterialFileError; "keep" the good files and look at
    ``Library.diagnostics``; "empty" that all read before it is dropped, as MaterialLibrary.dll does.
    ``encoding`` is that of the names, vendors and comments in the files; bytes that it does not know
    survive as lone surrogates.
    """
    encoded = [os.fspath(path).encode("utf-8", "surrogateescape") for path in paths]
    for path in encoded:
        _refuse_nul(path)
    array = (ctypes.c_char_p * len(encoded))(*encoded)
    address = ctypes.c_void_p()
    _native.check(_native.lib.ml_open_files(array, len(encoded), _flags(errors), ctypes.byref(address)))
    return Library._made(address, encoding, errors)


def open_text(
    text: Union[str, bytes], name: str = "<text>", *, errors: Errors = "raise", encoding: str = "utf-8"
) -> Library:
    """Reads the materials of one file's text. ``name`` is what exceptions call it.

    >>> open_text('{MAT_FILE}{VERSION=1.0}{DIELECTRIC(NAME="x")}')[0]
    <Material 'x': dielectric, no tables>
    >>> open_text("{MAT_FILE}{VERSION=1.0}{GLASS}", "glass.mat")
    Traceback (most recent call last):
    materiallibrary.MaterialFileError: glass.mat:1:30: ...
    """
    data = text.encode(encoding, "surrogateescape") if isinstance(text, str) else bytes(text)
    called = name.encode("utf-8", "surrogateescape")
    _refuse_nul(called)
    address = ctypes.c_void_p()
    _native.check(
        _native.lib.ml_open_text(data, len(data), called, _flags(errors), ctypes.byref(address))
    )
    return Library._made(address, encoding, errors)


def write(path: Path, materials: Iterable[Material], overwrite: bool = False) -> None:
    """Writes materials, made or read, into one material file, as a whole or not at all.

    What is read from the file has the same texts, numbers and rows, bit for bit. A file that is there is a
    FileExistsError unless ``overwrite`` is set; it is then replaced and keeps its permissions. Dielectrics beside
    metals are a ValueError: a file holds either.
    """
    encoded = os.fspath(path).encode("utf-8", "surrogateescape")
    _refuse_nul(encoded)
    written = tuple(materials)
    addresses = (ctypes.c_void_p * len(written))(*(material.address for material in written))
    reason = ctypes.create_string_buffer(_native.REASON_SIZE)
    flags = _WRITE_REPLACE if overwrite else 0
    error = _native.lib.ml_write_file(encoded, addresses, len(written), flags, reason, len(reason))
    said = reason.value.decode("utf-8", "replace")
    if error == _native.ERROR_UNWRITABLE:
        raise ValueError(said)
    if error == _native.ERROR_EXISTS:
        raise FileExistsError(errno.EEXIST, said, os.fspath(path))
    if error == _native.ERROR_WRITE:
        raise OSError(f"{os.fspath(path)}: {said}")
    _native.check(error)


def _refuse_nul(path: bytes) -> None:
    if b"\0" in path:
        raise ValueError("a path or name holds a NUL character")


def _flags(errors: Errors) -> int:
    if errors not in _ERRORS:
        raise ValueError(f"errors is one of {_ERRORS}, not {errors!r}")
    return _OPEN_ERROR_EMPTIES if errors == "empty" else 0


class Library(_Base):
    """The materials of some files: a sequence in the order of the files, and a mapping from their names.

    Of materials with the same name the mapping has the one read last. Iteration is the sequence's; ``keys``,
    ``items`` and ``get`` are the mapping's. It never changes, and any number of threads may use it.
    """

    def __init__(self, handle: _native.Handle, encoding: str) -> None:
        self._handle = handle
        self._encoding = encoding
        lib = _native.lib
        self.diagnostics = tuple(self._diagnostic(i) for i in range(lib.ml_count_diagnostics(handle.address)))
        addresses = (lib.ml_get_material(handle.address, i) for i in range(lib.ml_count_materials(handle.address)))
        self._materials = tuple(Material._of(handle, address, encoding) for address in addresses)
        self._by_address = {material.address: material for material in self._materials}
        self._by_name = {material.name: material for material in self._materials if material.name}

    @classmethod
    def _made(cls, address: ctypes.c_void_p, encoding: str, errors: Errors) -> Library:
        library = cls(_native.Handle(address, _native.lib.ml_close), encoding)
        if library.diagnostics and errors == "raise":
            raise MaterialFileError(library.diagnostics)
        return library

    def _diagnostic(self, index: int) -> Diagnostic:
        found = _native.fill(
            _native.lib.ml_get_diagnostic, _native.Diagnostic, self._handle.address, index
        )
        file, reason = (text.decode("utf-8", "surrogateescape") for text in (found.file, found.reason))
        return Diagnostic(file, found.line or None, found.column or None, reason)

    def __len__(self) -> int:
        return len(self._materials)

    @overload
    def __getitem__(self, key: Union[int, str]) -> Material: ...
    @overload
    def __getitem__(self, key: slice) -> Sequence[Material]: ...
    def __getitem__(self, key: Union[int, str, slice]) -> Union[Material, Sequence[Material]]:
        if not isinstance(key, str):
            return self._materials[key]
        found = self._by_name.get(key)
        if found is None:
            near = difflib.get_close_matches(key, self._by_name, 2)
            hint = f"; did you mean {' or '.join(map(repr, near))}?" if near else ""
            raise UnknownMaterialError(f"there is no material named {key!r}{hint}")
        return found

    def __contains__(self, key: Union[str, Material]) -> bool:
        return key in self._by_name if isinstance(key, str) else key in self._materials

    def __iter__(self) -> Iterator[Material]:
        return iter(self._materials)

    @overload
    def get(self, name: str) -> Optional[Material]: ...
    @overload
    def get(self, name: str, default: _Default) -> Union[Material, _Default]: ...
    def get(self, name: str, default: object = None) -> object:
        """The material of that name, or the default."""
        return self._by_name.get(name, default)

    def keys(self) -> KeysView[str]:
        """The names, each once."""
        return self._by_name.keys()

    def items(self) -> ItemsView[str, Material]:
        """Names and materials."""
        return self._by_name.items()

    def select(
        self,
        *,
        kind: Optional[Kind] = None,
        technology: Optional[Technology] = None,
        type: Optional[str] = None,
        vendor: Optional[str] = None,
        thickness: Optional[tuple[Optional[float], Optional[float]]] = None,
    ) -> list[Material]:
        """The materials with all the facts named. ``thickness`` is a range in m; None at an end leaves it open.

        Both ends belong to the range. A material without thickness is in none.
        """
        lib = _native.lib
        wanted = _native.fill(lib.ml_filter_all, _native.Filter)
        if kind is not None:
            wanted.kind = _code(kind, KINDS, "kind")
        if technology is not None:
            wanted.technology = _code(technology, TECHNOLOGIES, "technology")
        wanted.type = self._encode(type)
        wanted.vendor = self._encode(vendor)
        if thickness is not None:
            low, high = thickness
            wanted.thickness_min = 0.0 if low is None else low
            wanted.thickness_max = math.inf if high is None else high
        place = ctypes.c_size_t(0)
        found: list[Material] = []
        while address := lib.ml_next(self._handle.address, ctypes.byref(wanted), ctypes.byref(place)):
            found.append(self._by_address[address])
        return found

    def _encode(self, text: Optional[str]) -> Optional[bytes]:
        return None if text is None else text.encode(self._encoding, "surrogateescape")

    def __repr__(self) -> str:
        counts = [f"{len(self.select(kind=kind))} {kind}s" for kind in KINDS]
        bad = f", {len(self.diagnostics)} bad files" if self.diagnostics else ""
        return f"<Library: {', '.join(counts)}{bad}>"
