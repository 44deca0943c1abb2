"""Folders of drawings by the engines of tools/batch, whose workers are killed at work."""

import os
import pathlib
import shutil
import subprocess

import pytest

PROGRAM = os.environ.get("PSRENDER")
TOOLS = pathlib.Path(__file__).resolve().parents[2] / "tools" / "batch"
DRAWING = """<svg xmlns="http://www.w3.org/2000/svg" width="{0}" height="20">
<circle cx="9" cy="9" r="{0}"/></svg>"""

# Kills whoever asked for the first conversion, and itself, before anything is written; or after the
# output stands, but before anybody was told.
MURDERER = """#!/bin/sh
if [ ! -e {state}/early ]; then touch {state}/early; kill -9 $PPID $$; fi
{program} "$@"; code=$?
if [ ! -e {state}/late ]; then touch {state}/late; kill -9 $PPID $$; fi
exit $code
"""

ENGINES = [
    pytest.param("with-parallel", marks=pytest.mark.skipif(
        not shutil.which("parallel"), reason="GNU parallel is not installed")),
    pytest.param("with-dask", marks=pytest.mark.skipif(
        not pathlib.Path("/usr/lib/python3/dist-packages/distributed").exists(),
        reason="python3-distributed is not installed")),
]
pytestmark = pytest.mark.skipif(not PROGRAM, reason="PSRENDER names no program")


@pytest.fixture
def folder(tmp_path):
    inputs = tmp_path / "in"
    (inputs / "with blank & 'quote'").mkdir(parents=True)
    for i in range(8):
        (inputs / f"{i}.svg").write_text(DRAWING.format(20 + i))
    shutil.move(inputs / "3.svg", inputs / "with blank & 'quote'" / "3.svg")
    (inputs / "broken.svg").write_text("<svg")
    (inputs / "notes.txt").write_text("no drawing")
    return inputs


def run(engine, *words, program=PROGRAM, **settings):
    return subprocess.run([TOOLS / engine, *words], text=True, capture_output=True, timeout=100,
                          env={**os.environ, "PSRENDER": str(program)}, **settings)


def outputs(folder):
    return {path.relative_to(folder): path for path in folder.rglob("*.ps")
            if ".failed" not in path.parts}


@pytest.mark.parametrize("engine", ENGINES)
def test_a_folder_is_converted_though_workers_are_killed(engine, folder, tmp_path):
    program = tmp_path / "murderer"
    program.write_text(MURDERER.format(state=tmp_path, program=PROGRAM))
    program.chmod(0o755)
    out = tmp_path / "out"
    ended = run(engine, "-o", str(out), str(folder), "--", "--paper", "A4", program=program)
    assert (tmp_path / "early").exists() and (tmp_path / "late").exists()
    assert "8 of 9 converted, 1 failed" in ended.stdout and ended.returncode == 1, ended.stderr
    made = outputs(out)
    assert len(made) == 8 and pathlib.Path("with blank & 'quote'/3.svg.ps") in made
    for path in made.values():
        assert path.read_bytes().rstrip().endswith(b"%%EOF")
    failure, = (out / "failures.txt").read_text().splitlines()
    assert failure.startswith(str(folder / "broken.svg") + "\t") and "not well-formed" in failure
    (folder / "broken.svg").unlink()
    joined = tmp_path / "all.ps"
    run(engine, "-o", str(out), "--join", str(joined), str(folder)).check_returncode()
    assert b"%%Pages: 8\n" in joined.read_bytes()
    # Nothing half made lies about.
    assert not [path for path in out.rglob(".*.ps*") if path.is_file()]


@pytest.mark.parametrize("engine", ENGINES)
def test_what_is_finished_is_kept_and_the_rest_is_done(engine, folder, tmp_path):
    out = tmp_path / "out"
    (folder / "broken.svg").unlink()
    names = sorted(str(path) for path in folder.rglob("*.svg"))
    first = run(engine, "-o", str(out), "-", input="\n".join(names[:4]) + "\n")
    assert first.returncode == 0, first.stderr
    kept = {path: path.stat().st_ino for path in outputs(out).values()}
    changed = next(iter(kept))
    os.utime(changed, (0, 0))
    second = run(engine, "-o", str(out), "-", input="\n".join(names) + "\n")
    assert "8 of 8 converted, 0 failed" in second.stdout, second.stderr
    assert len(outputs(out)) == 8
    assert {path for path, inode in kept.items() if path.stat().st_ino != inode} == {changed}
    assert (out / "failures.txt").read_text() == ""


@pytest.mark.parametrize("engine", ENGINES)
def test_mistakes_in_the_command_are_told(engine, tmp_path):
    ended = run(engine, "-o", str(tmp_path), str(tmp_path / "nowhere"))
    assert ended.returncode != 0 and "no such folder" in ended.stderr
