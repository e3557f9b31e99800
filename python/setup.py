"""What pyproject.toml cannot say: the version is the C header's, and a wheel with the C library is for one system."""

import re
from pathlib import Path

from setuptools import Distribution, setup
from wheel.bdist_wheel import bdist_wheel

here = Path(__file__).resolve().parent
native = [path for name in ("libmaterials.so", "materials.dll") for path in here.glob("materiallibrary/" + name)]


def find_version() -> str:
    header = next(
        path / "include/MaterialLibrary/Version.h"
        for path in (here, *here.parents)
        if (path / "include/MaterialLibrary/Version.h").exists()
    )
    found = re.search(r'#define MATERIALLIBRARY_VERSION "(.*)"', header.read_text())
    assert found is not None
    return found[1]


class NativeDistribution(Distribution):
    def has_ext_modules(self) -> bool:
        return bool(native)


class PlatformWheel(bdist_wheel):
    """For any Python 3: ctypes asks for no ABI of Python's."""

    def get_tag(self) -> tuple[str, str, str]:
        _, _, platform = super().get_tag()
        return "py3", "none", platform


setup(version=find_version(), distclass=NativeDistribution, cmdclass={"bdist_wheel": PlatformWheel})
