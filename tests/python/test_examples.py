"""The example scripts print what stands beside them, and the documents' examples run as they are printed."""

import re
import shutil
import subprocess
import sys
from pathlib import Path

import pytest

import materiallibrary as ml
from conftest import MATERIALS

EXAMPLES = MATERIALS.parent / "python"
LAMINATES = "DefaultMaterialD.mat"
COMMANDS: dict[str, list[str]] = {
    "laminate": [],
    "export_poles": [LAMINATES, "FR4 Standard Core 0.20 mm", "--per-decade", "1"],
    "microstrip": [LAMINATES, "DefaultMaterialM.mat"],
}


def run(name: str, *arguments: str) -> str:
    command = [sys.executable, str(EXAMPLES / f"{name}.py"), *arguments]
    return subprocess.run(command, cwd=MATERIALS, capture_output=True, check=True, text=True).stdout


@pytest.mark.parametrize("name", COMMANDS)
def test_prints(name: str) -> None:
    assert run(name, *COMMANDS[name]) == (EXAMPLES / f"{name}.txt").read_text()


def test_draws_the_line(tmp_path: Path) -> None:
    picture = tmp_path / "line.png"
    run("microstrip", *COMMANDS["microstrip"], str(picture))
    assert picture.read_bytes().startswith(b"\x89PNG")


@pytest.mark.filterwarnings("ignore::materiallibrary.ExtrapolationWarning")
@pytest.mark.parametrize("document", ["docs/python.md", "python/README.md"])
def test_documents_run(document: str, tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
    text = (MATERIALS.parents[1] / document).read_text()
    blocks = re.findall("```python\n(.*?)```", text, re.DOTALL)
    shutil.copy(MATERIALS / LAMINATES, tmp_path / "laminates.mat")
    shutil.copy(MATERIALS / "DefaultMaterialM.mat", tmp_path / "foils.mat")
    monkeypatch.chdir(tmp_path)
    names: dict[str, object] = {}
    for block in blocks:
        exec(block, names)
    assert isinstance(names["core"], ml.Material) and names["eps"] is not None
