"""A matplotlib back end: figures as PostScript pages through PrintDocument.

    import matplotlib
    matplotlib.use("module://psgraphics.matplotlib")

Then `savefig("x.ps")` and `savefig("x.eps")` come through here, all other formats as ever. Without
`use`, `figure.savefig("x.ps", backend="module://psgraphics.matplotlib")` does it for one file.
Text is text in the fonts that matplotlib found, and translucent paint looks as on white paper.
"""

import functools
import math

import matplotlib as mpl
import numpy as np
from matplotlib import _path, _text_helpers, font_manager
from matplotlib.backend_bases import (
    FigureCanvasBase, FigureManagerBase, GraphicsContextBase, RendererBase, _Backend)
from matplotlib.backends.backend_agg import RendererAgg
from matplotlib.backends.backend_mixed import MixedModeRenderer
from matplotlib.figure import Figure
from matplotlib.path import Path
from matplotlib.transforms import Affine2D

import psgraphics as ps

_CAPS = {"butt": ps.LineCap.BUTT, "round": ps.LineCap.ROUND, "projecting": ps.LineCap.SQUARE}
_JOINS = {"miter": ps.LineJoin.MITER, "round": ps.LineJoin.ROUND, "bevel": ps.LineJoin.BEVEL}

# Points, as printers know them.
_PAPERS = {
    "letter": (612, 792), "legal": (612, 1008), "ledger": (1224, 792), "tabloid": (792, 1224),
    "a0": (2384, 3370), "a1": (1684, 2384), "a2": (1191, 1684), "a3": (842, 1191),
    "a4": (595, 842), "a5": (420, 595), "a6": (298, 420),
    "b4": (709, 1001), "b5": (499, 709),
}

# Below it, recording a shape costs more than drawing it anew.
_LEAST_PLACEMENTS = 4
# Shorter paths are not searched for curves without extent, and what such curves keep to, in points.
_LEAST_CURVES = 40
_LEAST_STEP = 1e-4
# Side of a hatch's tile in points.
_HATCH_SIDE = 72


@functools.lru_cache(maxsize=64)
def _font_program(file_name):
    return ps.open_font_file(file_name)


_UPSIDE_DOWN = np.array([[1.0], [-1], [1]])


def _opaque(rgba):
    return rgba is not None and rgba[3] >= 1


class Renderer(RendererBase):
    """Draws on the current page of `document`, `height` points high; figure space is y upwards from
    `left`, `bottom`. Everything is brought to page space before it is drawn, so the document's
    transform stays the identity but for turned text, pictures and recorded shapes.
    """

    def __init__(self, document, width, height, image_dpi, left=0, bottom=0):
        super().__init__()
        self.width = width
        self.height = height
        self._document = document
        self._image_dpi = image_dpi
        self._origin = np.array([left, height + bottom], dtype=float)
        self._to_page = np.array([[1, 0, left], [0, -1, height + bottom], [0, 0, 1.0]])
        self._brushes = {}
        self._strokes = {}
        self._tiles = {}
        self._clip = None
        self._has_transform = False
        self._style = None
        document.set_transform()
        document.set_clip()

    # What matplotlib asks a renderer.

    def flipy(self):
        return False

    def get_canvas_width_height(self):
        return self.width, self.height

    def get_image_magnification(self):
        return self._image_dpi / 72

    def option_image_nocomposite(self):
        return not mpl.rcParams["image.composite_image"]

    def option_scale_image(self):
        return True

    # Paint, lines, clip and transform, told to the document only when they change.

    def _brush(self, rgba):
        """None for what leaves no paint."""
        if rgba is None or rgba[3] == 0:
            return None
        brush = self._brushes.get(rgba)
        if brush is None:
            color = ps.RGBColor(*(round(255 * part) for part in rgba[:3]))
            brush = self._brushes[rgba] = ps.SolidColorBrush(color, rgba[3])
        return brush

    def _stroke(self, gc, rgba):
        width = gc.get_linewidth()
        brush = self._brush(rgba)
        if width <= 0 or brush is None:
            return None
        offset, dashes = gc.get_dashes()
        dashes = () if dashes is None else tuple(dashes)
        key = (rgba, width, offset, dashes, gc.get_capstyle(), gc.get_joinstyle())
        stroke = self._strokes.get(key)
        if stroke is None:
            stroke = ps.Stroke(brush, width, _CAPS[gc.get_capstyle()],
                               _JOINS[gc.get_joinstyle()], 10, dashes, offset or 0)
            self._strokes[key] = stroke
        return stroke

    def _colors(self, gc, face):
        """Edge and face with the alpha that holds for each."""
        edge = tuple(gc.get_rgb())
        if face is None:
            return edge, None
        forced = gc.get_alpha() if gc.get_forced_alpha() or len(face) == 3 else face[3]
        return edge, (*face[:3], forced)

    def _set_style(self, stroke, fill):
        # Identity, which no other style can take while this one is held.
        if self._style is None or self._style[0] is not stroke or self._style[1] is not fill:
            self._document.set_stroke(stroke)
            self._document.set_fill(fill)
            self._style = (stroke, fill)

    def _set_transform(self, matrix=None):
        if matrix is not None:
            self._document.set_transform(_six(matrix))
        elif self._has_transform:
            self._document.set_transform()
        self._has_transform = matrix is not None

    def _set_clip(self, gc):
        box = gc.get_clip_rectangle()
        box = None if box is None else box.bounds
        path, transform = gc.get_clip_path()
        matrix = None if path is None else transform.get_matrix().tobytes()
        key = (box, path, matrix)
        if key == self._clip:
            return
        self._set_transform()
        paths = []
        if box is not None:
            corners = self._points([[box[0], box[1]], [box[0] + box[2], box[1] + box[3]]])
            paths.append(ps.Path.rectangle(*corners.min(axis=0), *np.ptp(corners, axis=0)))
        if path is not None:
            paths.append(self._path(path, transform))
        self._document.set_clip(paths)
        self._clip = key

    # Geometry.

    def _points(self, points):
        """Points of figure space on the page."""
        return np.asarray(points, dtype=float) * (1.0, -1.0) + self._origin

    def _matrix(self, transform):
        return self._to_page @ transform.get_matrix()

    def _path(self, path, transform, clip=None, simplify=False, sketch=None):
        return ps.Path.from_arrays(
            *_arrays(path, self._matrix(transform), clip, simplify, sketch))

    def _page_box(self):
        corners = self._points([[0, 0], [self.width, self.height]])
        return (*corners.min(axis=0), *corners.max(axis=0))

    # Shapes.

    def draw_path(self, gc, path, transform, rgbFace=None):
        edge, face = self._colors(gc, rgbFace)
        is_line = face is None and gc.get_hatch() is None
        shape = self._path(path, transform, self._page_box() if is_line else None,
                           path.should_simplify and is_line, gc.get_sketch_params())
        self._set_clip(gc)
        self._set_transform()
        self._paint(gc, shape, self._stroke(gc, edge), self._brush(face))

    def _paint(self, gc, shape, stroke, fill):
        if gc.get_hatch() is not None:
            fill = self._hatch(gc, fill)
        if stroke is not None or fill is not None:
            self._set_style(stroke, fill)
            self._document.draw_path(shape)

    def _hatch(self, gc, fill):
        """A brush whose tiles lie as the figure's lower left corner has them. The face is a part of
        them: rasterisers smooth what a tile holds against its own ground.
        """
        color = self._brush((*gc.get_hatch_color()[:3], 1))
        width = gc.get_hatch_linewidth()
        key = (gc.get_hatch(), color, width, fill)
        if key not in self._tiles:
            side = _HATCH_SIDE
            tile = self._document.create_pattern_context(side, side)
            tile.set_stroke(None)
            tile.set_fill(fill)
            tile.draw_rectangle(0, 0, side, side)
            tile.set_stroke(ps.Stroke(color, width))
            tile.set_fill(color)
            tile.draw_path(ps.Path.from_arrays(
                *_arrays(gc.get_hatch_path(), [[side, 0, 0], [0, -side, side], [0, 0, 1]])))
            self._tiles[key] = ps.PatternBrush(tile, origin=tuple(self._points([0, 0])))
        return self._tiles[key]

    def draw_markers(self, gc, marker_path, marker_trans, path, trans, rgbFace=None):
        self._set_clip(gc)
        edge, face = self._colors(gc, rgbFace)
        matrix = marker_trans.get_matrix()
        if len(path.vertices) == 1:  # a tick
            place = trans.transform(path.vertices)[0]
            if np.isfinite(place).all():
                self._draw_once(marker_path, matrix, place, self._stroke(gc, edge),
                                self._brush(face))
            return
        places = self._marker_places(path, trans)
        if len(places) and not self._draw_plain_markers(gc, marker_path, matrix, places, edge,
                                                        face):
            self._draw_copies(marker_path, matrix, places, self._stroke(gc, edge),
                              self._brush(face))

    def _marker_places(self, path, trans):
        """The ends of a path's parts, on the page; markers far off it would show nothing."""
        if path.codes is None:
            ends = trans.transform(path.vertices)
        else:
            ends = np.array([vertices[-2:] for vertices, _ in
                             path.iter_segments(trans, simplify=False) if len(vertices)])
        ends = ends.reshape(-1, 2)
        far = np.abs(ends - (self.width / 2, self.height / 2)) > (self.width, self.height)
        return self._points(ends[np.isfinite(ends).all(axis=1) & ~far.any(axis=1)])

    def _draw_plain_markers(self, gc, marker_path, matrix, places, edge, face):
        """Discs and squares with a border of their own colour are larger ones without; false for
        all other markers.
        """
        kind = _plain_kind(marker_path)
        width = gc.get_linewidth() if edge[3] > 0 else 0
        if kind is None or not _opaque(face) or matrix[0, 1] or matrix[1, 0]:
            return False
        if width and (edge != face or gc.get_dashes()[1] is not None or
                      (kind == "square" and gc.get_joinstyle() != "miter")):
            return False
        scale = np.abs([matrix[0, 0], matrix[1, 1]])
        fragment = self._fragment(None, self._brush(face))
        if kind == "disc":
            fragment.draw_ellipse(matrix[0, 2], -matrix[1, 2], *(scale + width / 2))
        else:
            size = scale + width
            corner = (matrix[:2] @ (0.5, 0.5, 1)) * (1, -1) - size / 2
            fragment.draw_rectangle(*corner, *size)
        self._place(fragment, places)
        return True

    def _fragment(self, stroke, fill):
        fragment = self._document.create_document_fragment(0, 0)
        fragment.set_stroke(stroke)
        fragment.set_fill(fill)
        return fragment

    def _place(self, fragment, places):
        self._document.place_fragment(fragment, places)
        self._has_transform = False

    def _draw_once(self, path, matrix, place, stroke, fill):
        """A shape around its own origin, at a place of figure space."""
        if stroke is None and fill is None:
            return
        moved = matrix * _UPSIDE_DOWN
        moved[0, 2] += self._origin[0] + place[0]
        moved[1, 2] += self._origin[1] - place[1]
        self._set_transform()
        self._set_style(stroke, fill)
        self._document.draw_path(ps.Path.from_arrays(*_arrays(path, moved)))

    def _draw_copies(self, path, matrix, places, stroke, fill):
        """The same shape, in the units of the figure around its own origin, at each place."""
        if stroke is None and fill is None:
            return
        vertices, codes = _arrays(path, matrix * _UPSIDE_DOWN)
        if len(places) < _LEAST_PLACEMENTS or len(vertices) <= 4:
            self._set_transform()
            self._set_style(stroke, fill)
            for place in places:
                self._document.draw_path(ps.Path.from_arrays(vertices + place, codes))
            return
        fragment = self._fragment(stroke, fill)
        fragment.draw_path(ps.Path.from_arrays(vertices, codes))
        self._place(fragment, places)

    def draw_path_collection(self, gc, master_transform, paths, all_transforms, offsets,
                             offset_trans, facecolors, edgecolors, linewidths, linestyles,
                             antialiaseds, urls, offset_position):
        shapes = [(path, transform.get_matrix()) for path, transform in
                  self._iter_collection_raw_paths(master_transform, paths, all_transforms)]
        self._set_clip(gc)
        run, places = None, []
        for x, y, index, item, face in self._iter_collection(
                gc, list(range(len(shapes))), offsets, offset_trans, facecolors, edgecolors,
                linewidths, linestyles, antialiaseds, urls, offset_position):
            edge, face = self._colors(item, face)
            if item.get_hatch() is not None:
                self.draw_path(item, shapes[index][0],
                               Affine2D(shapes[index][1]).translate(x, y), face)
                continue
            style = (index, self._stroke(item, edge), self._brush(face))
            if run is not None and (style[0] != run[0] or style[1] is not run[1] or
                                    style[2] is not run[2]):
                self._draw_run(shapes, run, places)
                places = []
            run = style
            places.append((x, y))
        if places:
            self._draw_run(shapes, run, places)

    def _draw_run(self, shapes, run, places):
        index, stroke, fill = run
        path, matrix = shapes[index]
        if len(places) == 1:
            self._draw_once(path, matrix, places[0], stroke, fill)
        else:
            self._draw_copies(path, matrix, self._points(places), stroke, fill)

    def draw_quad_mesh(self, gc, master_transform, meshWidth, meshHeight, coordinates, offsets,
                       offsetTrans, facecolors, antialiased, edgecolors):
        plain = (edgecolors is not None and len(edgecolors) == 0 and len(offsets) <= 1 and
                 gc.get_hatch() is None and len(facecolors) == meshWidth * meshHeight and
                 np.all(facecolors[:, 3] >= 1) and np.all(np.isfinite(coordinates)))
        if not plain:
            super().draw_quad_mesh(gc, master_transform, meshWidth, meshHeight, coordinates,
                                   offsets, offsetTrans, facecolors, antialiased, edgecolors)
            return
        corners = master_transform.transform(np.asarray(coordinates).reshape(-1, 2))
        if len(offsets):
            corners = corners + offsetTrans.transform(offsets)[0]
        corners = self._points(corners).reshape(meshHeight + 1, meshWidth + 1, 2)
        quads = np.stack([corners[:-1, :-1], corners[:-1, 1:], corners[1:, 1:], corners[1:, :-1]],
                         axis=2).reshape(-1, 4, 2)
        self._set_clip(gc)
        self._draw_quads(quads, np.round(facecolors[:, :3] * 255).astype(np.uint8))

    def _draw_quads(self, quads, colors):
        """Quadrangles in colours of their own; upright ones are rectangles."""
        self._set_transform()
        self._set_style(None, None)
        low, high = quads.min(axis=1), quads.max(axis=1)
        at_edges = (np.isclose(quads, low[:, None]) | np.isclose(quads, high[:, None])).all()
        if at_edges:
            self._document.draw_rectangles(np.hstack([low, high - low]), colors)
        else:
            self._document.draw_polylines(quads.reshape(-1, 2), np.full(len(quads), 4), True,
                                          colors)
        self._style = None

    # Smooth shading and pictures.

    def draw_gouraud_triangle(self, gc, points, colors, transform):
        self.draw_gouraud_triangles(gc, points.reshape(1, 3, 2), colors.reshape(1, 3, 4),
                                    transform)

    def draw_gouraud_triangles(self, gc, triangles_array, colors_array, transform):
        """A picture of all of them, drawn by matplotlib's own rasteriser."""
        points = transform.transform(np.asarray(triangles_array).reshape(-1, 2))
        low = np.maximum(np.floor(points.min(axis=0)), 0)
        high = np.minimum(np.ceil(points.max(axis=0)), (self.width, self.height))
        if np.any(high <= low):
            return
        scale = max(self._image_dpi / 72, 1)
        pixels = np.ceil((high - low) * scale).astype(int)
        raster = RendererAgg(*pixels, 72 * scale)
        raster.draw_gouraud_triangles(
            GraphicsContextBase(), ((points - low) * scale).reshape(-1, 3, 2),
            np.asarray(colors_array), Affine2D())
        self._set_clip(gc)
        self._set_transform()
        left, top = self._points([low[0], high[1]])
        picture = ps.RasterImage(np.asarray(raster.buffer_rgba()), interpolated=True)
        self._document.draw_image(picture, left, top, *(high - low))

    def draw_image(self, gc, x, y, im, transform=None):
        height, width = im.shape[:2]
        if width == 0 or height == 0:
            return
        picture = ps.RasterImage(im[::-1])
        self._set_clip(gc)
        if transform is None:
            size = np.array([width, height]) / self.get_image_magnification()
            left, top = self._points([x, y + size[1]])
            self._set_transform()
            self._document.draw_image(picture, left, top, *size)
            return
        moved = transform.frozen().translate(x, y)
        self._set_transform(self._matrix(moved) @ [[1, 0, 0], [0, -1, 1], [0, 0, 1]])
        self._document.draw_image(picture, 0, 0, 1, 1)

    # Text.

    def draw_text(self, gc, x, y, s, prop, angle, ismath=False, mtext=None):
        color = tuple(gc.get_rgb())
        if color[3] == 0:
            return
        if ismath == "TeX":
            self._draw_text_as_path(gc, x, y, s, prop, angle, ismath)
            return
        self._set_clip(gc)
        self._set_style(None, self._brush(color))
        if ismath:
            self._draw_math(x, y, s, prop, angle)
        else:
            self._draw_line_of_text(x, y, s, prop, angle)

    def draw_tex(self, gc, x, y, s, prop, angle, *, mtext=None):
        self._draw_text_as_path(gc, x, y, s, prop, angle, ismath="TeX")

    def _draw_line_of_text(self, x, y, s, prop, angle):
        size = prop.get_size_in_points()
        font = font_manager.get_font(font_manager.fontManager._find_fonts_by_props(prop))
        font.set_size(size, 72)
        runs = []
        for item in _text_helpers.layout(s, font):
            file_name = item.ft_object.fname
            if not runs or runs[-1][0] != file_name:
                runs.append((file_name, [], [], []))
            _, glyphs, places, texts = runs[-1]
            glyphs.append(item.glyph_idx)
            places.append((item.x, 0))
            texts.append(item.char)
        place = self._text_place(x, y, angle)
        for file_name, glyphs, places, texts in runs:
            self._document.draw_glyphs(glyphs, place(places), texts, _font_program(file_name),
                                       size)

    def _draw_math(self, x, y, s, prop, angle):
        _, _, _, glyphs, boxes = self._text2path.mathtext_parser.parse(s, 72, prop)
        place = self._text_place(x, y, angle)
        for font, size, code, left, up in glyphs:
            self._document.draw_glyphs([font.get_char_index(code)], place([(left, up)]),
                                       [chr(code)], _font_program(font.fname), size)
        for left, up, width, height in boxes:
            corner = place([(left, up + height)])[0]
            self._document.draw_rectangle(*corner, width, height)

    def _text_place(self, x, y, angle):
        """Sets the transform for text at (x, y); what comes back brings points beside it, y
        upwards, to the user space that is current then.
        """
        origin = self._points([x, y])
        if angle == 0:
            self._set_transform()
            return lambda points: np.asarray(points) * (1, -1) + origin
        cosine, sine = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        self._set_transform(np.array([[cosine, sine, origin[0]], [-sine, cosine, origin[1]]]))
        return lambda points: np.asarray(points) * (1.0, -1)


def _arrays(path, matrix, clip=None, simplify=False, sketch=None):
    """Vertices and codes of a path that a matrix maps, without what is not finite."""
    return _without_points(*_path.cleanup_path(path, matrix, True, clip, False, 1.0, simplify,
                                               True, sketch))


def _without_points(vertices, codes):
    """Curves that stay where they begin are left out but for the first of a part, which may show as
    a dot: the edges of round axes are full of them.
    """
    if len(codes) < _LEAST_CURVES:
        return vertices, codes
    starts = np.flatnonzero(codes == Path.CURVE4)[::3]
    starts = starts[codes[starts - 1] != Path.MOVETO]
    steps = np.abs(vertices[starts[:, None] + (0, 1, 2)] - vertices[starts - 1][:, None])
    idle = starts[steps.max(axis=(1, 2), initial=0) < _LEAST_STEP]
    if not len(idle):
        return vertices, codes
    kept = np.ones(len(codes), dtype=bool)
    kept[(idle[:, None] + (0, 1, 2)).ravel()] = False
    return vertices[kept], codes[kept]


def _six(matrix):
    """The numbers of a matrix for column vectors as the library has them."""
    return (matrix[0, 0], matrix[1, 0], matrix[0, 1], matrix[1, 1], matrix[0, 2], matrix[1, 2])


def _plain_kind(path):
    """ "disc" or "square" for the marker paths that are one, else None."""
    if path is Path.unit_circle():
        return "disc"
    if path is Path.unit_rectangle():
        return "square"
    return None


_PROPERTIES = ("Title", "Author", "Subject", "Keywords", "Creator")


def _describe(document, metadata):
    metadata = {"Creator": f"Matplotlib {mpl.__version__}", **(metadata or {})}
    for name in _PROPERTIES:
        if metadata.get(name):
            document.set_property(name.lower(), str(metadata[name]))


class FigureCanvas(FigureCanvasBase):
    """A figure that is saved as PostScript. Keyword arguments of `savefig` beside the usual ones:
    `papertype` ("a4", "letter" ...) centres the figure on that paper, which lies on its side with
    `orientation="landscape"`; else the page is as large as the figure. `metadata` may hold Title,
    Author, Subject, Keywords and Creator.
    """

    fixed_dpi = 72
    filetypes = {**FigureCanvasBase.filetypes,
                 "ps": "PostScript", "eps": "Encapsulated PostScript"}

    def get_default_filetype(self):
        return "ps"

    def print_ps(self, filename, *, metadata=None, papertype=None, orientation="portrait",
                 bbox_inches_restore=None, **kwargs):
        paper = _paper(papertype, orientation)
        if isinstance(filename, PsPages):
            self._draw_page(filename._document, paper, bbox_inches_restore)
            return
        with ps.PrintDocument(filename, keep_hints=False) as document:
            _describe(document, metadata)
            self._draw_page(document, paper, bbox_inches_restore)

    def print_eps(self, filename, *, metadata=None, bbox_inches_restore=None, **kwargs):
        with ps.PrintDocument(filename, form=ps.FileForm.EPS_SHEET,
                              keep_hints=False) as document:
            _describe(document, metadata)
            self._draw_page(document, None, bbox_inches_restore)

    def _draw_page(self, document, paper, bbox_inches_restore):
        dpi = self.figure.dpi
        self.figure.dpi = 72
        width, height = self.figure.bbox.size
        paper_width, paper_height = paper or (width, height)
        with document.page(paper_width, paper_height):
            left, bottom = (paper_width - width) / 2, (paper_height - height) / 2
            renderer = Renderer(document, width, height, dpi, left, bottom)
            self.figure.draw(MixedModeRenderer(
                self.figure, width / 72, height / 72, dpi, renderer,
                bbox_inches_restore=bbox_inches_restore))


def _paper(name, orientation):
    """Its size, or None for a page as large as the figure."""
    if name is None or name == "figure":
        return None
    try:
        width, height = _PAPERS[name.lower()]
    except KeyError:
        raise ValueError(f"papertype {name!r} is not known; take one of "
                         f"{', '.join(['figure', *_PAPERS])}") from None
    return (height, width) if orientation.lower() == "landscape" else (width, height)


class PsPages:
    """Several figures as the pages of one document.

        with PsPages("report.ps") as pages:
            pages.savefig(figure)
    """

    def __init__(self, filename, metadata=None):
        self._document = ps.PrintDocument(filename, keep_hints=False)
        _describe(self._document, metadata)
        self._document.start_document()

    def savefig(self, figure=None, **kwargs):
        """Adds a page; `figure` is the current one unless given, as a Figure or its number."""
        if not isinstance(figure, Figure):
            from matplotlib import pyplot
            figure = pyplot.figure(figure) if figure is not None else pyplot.gcf()
        figure.savefig(self, format="ps", backend="module://psgraphics.matplotlib", **kwargs)

    def close(self):
        """Writes the whole document."""
        self._document.end_document()

    def __enter__(self):
        return self

    def __exit__(self, kind, error, trace):
        if kind is None:
            self.close()


@_Backend.export
class _BackendPSGraphics(_Backend):
    backend_version = ps.__version__
    FigureCanvas = FigureCanvas
    FigureManager = FigureManagerBase
