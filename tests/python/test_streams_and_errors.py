"""Where documents go, and what comes of failures."""

import io
import logging
import os
import pathlib
import struct
import threading

import pytest

import psgraphics as ps

FONT = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"


def write(output, **settings):
    with ps.PrintDocument(output, **settings) as document, document.page(100, 100):
        document.draw_rectangle(1, 2, 3, 4)


def test_every_kind_of_output_gets_the_same_file(tmp_path):
    memory = io.BytesIO()
    write(memory)
    expected = memory.getvalue()
    assert expected.startswith(b"%!PS-Adobe-3.0") and expected.rstrip().endswith(b"%%EOF")
    write(tmp_path / "path.ps")
    write(os.fsencode(tmp_path / "bytes.ps"))
    with open(tmp_path / "raw.ps", "wb", buffering=0) as raw:
        write(raw)
    stream = ps.MemoryStream()
    write(stream)
    file = ps.FileStream(str(tmp_path / "stream.ps"))
    write(file)
    file.close()

    class Kept:
        parts = []

        def write(self, part):
            self.parts.append(part[:7])
            return len(self.parts[-1])

    write(Kept())
    for name in ("path.ps", "bytes.ps", "raw.ps", "stream.ps"):
        assert (tmp_path / name).read_bytes() == expected, name
    assert stream.getvalue() == expected == b"".join(Kept.parts)


def test_a_file_takes_its_place_when_it_is_whole(tmp_path):
    target = tmp_path / "out.ps"
    target.write_text("before")
    target.chmod(0o640)
    link = tmp_path / "link.ps"
    link.symlink_to(target)
    with pytest.raises(ps.PrintError):
        with ps.PrintDocument(link, form=ps.FileForm.EPS_INK):
            pass  # such a file must have a page
    assert target.read_text() == "before"
    with pytest.raises(ZeroDivisionError):
        with ps.PrintDocument(target) as document, document.page(10, 10):
            1 / 0
    assert target.read_text() == "before" and len(list(tmp_path.iterdir())) == 2
    write(link)
    assert target.read_bytes().startswith(b"%!PS") and link.is_symlink()
    assert target.stat().st_mode & 0o777 == 0o640
    with pytest.raises(OSError):
        write(tmp_path / "no folder" / "out.ps")


def test_what_a_python_file_raises_comes_back():
    class Full(io.RawIOBase):
        def write(self, part):
            raise OSError(28, "No space left on device")

    with pytest.raises(OSError, match="No space left"):
        write(Full())
    with pytest.raises(TypeError, match="open it in binary mode"):
        write(io.StringIO())
    with pytest.raises(TypeError, match="a path, a binary file or a Stream"):
        write(42)


def test_streams_are_read_and_written_from_python():
    file = io.BytesIO(b"0123456789")
    stream = ps.Stream(file)
    assert stream.read(4) == b"0123"
    stream.write(b"ab")
    stream.seek(-1, 2)
    assert file.getvalue() == b"0123ab6789" and stream.length() == 10 and stream.read(9) == b"9"


@pytest.mark.parametrize("call, kind, own, message", [
    (lambda d: d.draw_rectangle(1, 2, 3, float("nan")), ps.NumberRangeError, ValueError, "nan"),
    (lambda d: d.draw_line(1e39, 0, 0, 0), ps.NumberRangeError, ValueError, "inf"),
    (lambda d: d.draw_text("x", 0, 0), ps.PrintError, ValueError, "without a font"),
    (lambda d: ps.PSDocument().draw_line(1, 2, 3, 4), ps.NullPointerError, ValueError,
     "null pointer"),
    (lambda d: d.draw_path(None), ps.PrintError, ValueError, "the path to be drawn is null"),
    (lambda d: d.start_page(9, 9), ps.PrintError, ValueError, "call endPage"),
    (lambda d: d.draw_3d_object(ps.Object3D(), 0, 0, 1, 1), ps.OutOfRangeError, ValueError, "1591"),
    (lambda d: ps.find_font(ps.Font("No Such Family", 9)), ps.FontNotFoundError, LookupError,
     "No Such Family"),
    (lambda d: ps.open_font_file("/no/such.ttf"), ps.FontError, ValueError, "/no/such.ttf"),
    (lambda d: ps.open_font_data(b"rubbish", "mine"), ps.FontError, ValueError, "mine"),
    (lambda d: ps.FileStream("/no/such/folder/x"), ps.StreamError, OSError, "No such file"),
    (lambda d: ps.ColorFieldBrush((0, 0), (1, 1), [[[1, 2, 3]]]), ps.FormatError, ValueError,
     "1 by 1 colours"),
])
def test_failures_are_exceptions_with_the_text_of_the_library(call, kind, own, message):
    with ps.PrintDocument(io.BytesIO()) as document, document.page(9, 9):
        with pytest.raises(kind) as raised:
            call(document)
    error = raised.value
    assert isinstance(error, own) and isinstance(error, ps.Error)
    assert message in str(error)
    assert str(error) == f"{error.source}({error.line}): {error.message}"


def test_warnings_go_to_the_logger(caplog):
    data = bytearray(pathlib.Path(FONT).read_bytes())
    record = data.index(b"OS/2")
    table = struct.unpack_from(">L", data, record + 8)[0]
    struct.pack_into(">H", data, table + 8, 2)  # fsType: may not be embedded
    program = ps.open_font_data(bytes(data), "restricted.ttf")
    assert not program.embeddable
    with caplog.at_level(logging.WARNING, "psgraphics"):
        with ps.PrintDocument(io.BytesIO()) as document, document.page(99, 99):
            document.set_fill(ps.GrayScaleColor(0))
            document.draw_glyphs(program.map_glyphs("A"), [[0, 50]], ["A"], program, 12)
    assert any("DejaVu" in record.getMessage() for record in caplog.records)


def test_documents_are_written_side_by_side():
    """Each by a thread of its own, through Python streams and a Python colour conversion."""
    def work(results):
        output = io.BytesIO()
        colors = ps.ColorConverter(ps.ColorSpace.GRAY, lambda space, color: color[:1])
        with ps.PrintDocument(output, colors=colors) as document:
            for _ in range(5):
                with document.page(100, 100):
                    document.draw_rectangles([[i, i, 5, 5] for i in range(500)],
                                             [[i % 256, 0, 0] for i in range(500)])
        results.append(output.getvalue())

    results = []
    threads = [threading.Thread(target=work, args=[results]) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join(60)
    assert len(results) == 4 and len(set(results)) == 1
