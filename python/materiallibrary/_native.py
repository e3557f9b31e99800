"""The C library: where it is found, and its functions and structs as materials.h declares them."""

from __future__ import annotations

import ctypes
import os
import sys
from ctypes import POINTER, byref, c_char_p, c_double, c_int32, c_size_t, c_uint32, c_void_p
from pathlib import Path
from typing import Any, Type, TypeVar

import numpy as np

from ._errors import MaterialLibraryError
from ._types import DoubleArray, StatusArray

LIBRARY_VARIABLE = "MATERIALLIBRARY_PATH"
FILE_NAME = "materials.dll" if sys.platform == "win32" else "libmaterials.so"
SONAME = "materials.dll" if sys.platform == "win32" else "libmaterials.so.1"
INTERFACE_VERSION = "1."  # what ml_version begins with

ERROR_NO_DATA = 3
ERROR_NO_FIT = 4
ERROR_MEMORY = 2
ERROR_UNWRITABLE = 6
ERROR_EXISTS = 7
ERROR_WRITE = 8
REASON_SIZE = 1024  # enough for any sentence of the C library
ANY = -(2**31)


class Diagnostic(ctypes.Structure):
    _fields_ = [
        ("struct_size", c_size_t),
        ("file", c_char_p),
        ("line", c_uint32),
        ("column", c_uint32),
        ("reason", c_char_p),
    ]


class MaterialInfo(ctypes.Structure):
    _fields_ = [
        ("struct_size", c_size_t),
        ("name", c_char_p),
        ("type", c_char_p),
        ("vendor", c_char_p),
        ("comment", c_char_p),
        ("kind", c_int32),
        ("technology", c_int32),
        ("has_thickness", c_uint32),
        ("has_resistivity", c_uint32),
        ("thickness", c_double),
        ("resistivity", c_double),
        ("table_count", c_size_t),
    ]


class Filter(ctypes.Structure):
    _fields_ = [
        ("struct_size", c_size_t),
        ("kind", c_int32),
        ("technology", c_int32),
        ("type", c_char_p),
        ("vendor", c_char_p),
        ("thickness_min", c_double),
        ("thickness_max", c_double),
    ]


class Row(ctypes.Structure):
    _fields_ = [("frequency", c_double), ("value", c_double)]


class Table(ctypes.Structure):
    _fields_ = [
        ("struct_size", c_size_t),
        ("property", c_int32),
        ("temperature", c_double),
        ("rows", POINTER(Row)),
        ("row_count", c_size_t),
    ]


class ModelInfo(ctypes.Structure):
    _fields_ = [
        ("struct_size", c_size_t),
        ("eps_inf", c_double),
        ("term_count", c_size_t),
        ("frequency_min", c_double),
        ("frequency_max", c_double),
        ("residual_count", c_size_t),
        ("temperature", c_uint32),
    ]


class Term(ctypes.Structure):
    _fields_ = [("f1", c_double), ("f2", c_double), ("delta_eps", c_double)]


class Residual(ctypes.Structure):
    _fields_ = [
        ("property", c_int32),
        ("is_fitted", c_uint32),
        ("frequency", c_double),
        ("value", c_double),
        ("residual", c_double),
    ]


class Pole(ctypes.Structure):
    _fields_ = [("frequency", c_double), ("delta_eps", c_double)]


# What each function takes and gives. Handles are c_void_p; arrays of numpy's go by address.
_FUNCTIONS: dict[str, tuple[Any, list[Any]]] = {
    "ml_error_text": (c_char_p, [c_int32]),
    "ml_version": (c_char_p, []),
    "ml_open_files": (c_int32, [POINTER(c_char_p), c_size_t, c_uint32, POINTER(c_void_p)]),
    "ml_open_text": (c_int32, [c_char_p, c_size_t, c_char_p, c_uint32, POINTER(c_void_p)]),
    "ml_close": (None, [c_void_p]),
    "ml_count_diagnostics": (c_size_t, [c_void_p]),
    "ml_get_diagnostic": (c_int32, [c_void_p, c_size_t, POINTER(Diagnostic)]),
    "ml_count_materials": (c_size_t, [c_void_p]),
    "ml_get_material": (c_void_p, [c_void_p, c_size_t]),
    "ml_find": (c_void_p, [c_void_p, c_char_p]),
    "ml_get_info": (c_int32, [c_void_p, POINTER(MaterialInfo)]),
    "ml_filter_all": (c_int32, [POINTER(Filter)]),
    "ml_next": (c_void_p, [c_void_p, POINTER(Filter), POINTER(c_size_t)]),
    "ml_get_table": (c_int32, [c_void_p, c_size_t, POINTER(Table)]),
    "ml_values": (
        c_int32,
        [c_void_p, c_int32, c_double, c_uint32, c_void_p, c_size_t, c_void_p, c_void_p],
    ),
    "ml_make_model": (c_int32, [c_void_p, c_double, POINTER(c_void_p)]),
    "ml_make_model_from_terms": (c_int32, [c_double, POINTER(Term), c_size_t, POINTER(c_void_p)]),
    "ml_free_model": (None, [c_void_p]),
    "ml_get_model_info": (c_int32, [c_void_p, POINTER(ModelInfo)]),
    "ml_get_term": (c_int32, [c_void_p, c_size_t, POINTER(Term)]),
    "ml_get_residual": (c_int32, [c_void_p, c_size_t, POINTER(Residual)]),
    "ml_permittivity": (c_int32, [c_void_p, c_void_p, c_size_t, c_void_p, c_void_p]),
    "ml_make_builder": (c_int32, [POINTER(c_void_p)]),
    "ml_free_builder": (None, [c_void_p]),
    "ml_add_material": (c_int32, [c_void_p, POINTER(MaterialInfo)]),
    "ml_add_table": (c_int32, [c_void_p, POINTER(Table)]),
    "ml_build": (c_int32, [c_void_p, POINTER(c_void_p), c_char_p, c_size_t]),
    "ml_write_file": (c_int32, [c_char_p, POINTER(c_void_p), c_size_t, c_uint32, c_char_p, c_size_t]),
    "ml_debye_poles": (
        c_int32,
        [
            c_void_p,
            c_uint32,
            c_double,
            c_double,
            POINTER(Pole),
            c_size_t,
            POINTER(c_size_t),
            POINTER(c_double),
        ],
    ),
}


def _find_library() -> str:
    """The named file, the one beside this package's modules, or the system's."""
    named = os.environ.get(LIBRARY_VARIABLE)
    if named:
        path = Path(named)
        return str((path / FILE_NAME if path.is_dir() else path).absolute())
    beside = Path(__file__).resolve().parent / FILE_NAME
    return str(beside) if beside.exists() else SONAME


def _load() -> ctypes.CDLL:
    path = _find_library()
    try:
        library = ctypes.CDLL(path)
        for name, (result, arguments) in _FUNCTIONS.items():
            function = getattr(library, name)
            function.restype = result
            function.argtypes = arguments
    except (OSError, AttributeError) as error:
        raise ImportError(
            f"materiallibrary cannot use the C library {path}: {error}. Put {FILE_NAME} beside "
            f"{Path(__file__).resolve().parent / '__init__.py'} or name it in {LIBRARY_VARIABLE}."
        ) from error
    found = library.ml_version().decode()
    if not found.startswith(INTERFACE_VERSION):
        raise ImportError(f"{path} is version {found}; this package needs {INTERFACE_VERSION}x")
    return library


lib = _load()


def version() -> str:
    """That of the C library."""
    return str(lib.ml_version().decode())


def check(error: int) -> None:
    """Raises what the code of a function means, where it is no success."""
    if error == ERROR_MEMORY:
        raise MemoryError
    if error != 0:
        raise MaterialLibraryError(lib.ml_error_text(error).decode())


_Struct = TypeVar("_Struct", bound=ctypes.Structure)


def fill(function: Any, struct: Type[_Struct], *arguments: Any) -> _Struct:
    """The struct that a function of the C library fills, which is its last argument."""
    filled = struct()
    if struct._fields_[0][0] == "struct_size":
        filled.struct_size = ctypes.sizeof(struct)
    check(function(*arguments, byref(filled)))
    return filled


class Handle:
    """Owns what a function of the C library made, and releases it with the function named."""

    def __init__(self, address: c_void_p, release: Any) -> None:
        self.address = address
        self._release = release

    def __del__(self) -> None:
        self._release(self.address)


def values(
    material: int, code: int, temperature: float, flags: int, frequencies: DoubleArray
) -> tuple[DoubleArray, StatusArray]:
    """One property of a material for an array of frequencies without gaps, with the status of each value."""
    answers = np.empty(frequencies.shape)
    status = np.empty(frequencies.shape, np.uint8)
    check(
        lib.ml_values(
            material,
            code,
            temperature,
            flags,
            frequencies.ctypes.data,
            frequencies.size,
            answers.ctypes.data,
            status.ctypes.data,
        )
    )
    return answers, status
