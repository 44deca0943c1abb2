// What a page holds, in its order: the levels of the graphics state, paint and line, outlines.

#include "Print/internal/ContentWriter.h"

#include "Print/PrintException.h"
#include "Print/PrintForm.h"
#include "Print/internal/InkBox.h"

#include <cmath>
#include <utility>

namespace Drawing::Print {

namespace {

constexpr std::size_t kFlushSize = std::size_t{1} << 16;
/// A thousandth of a point: a sixtieth of a pixel at 1200 dpi.
constexpr int kPageDecimals = 3;

bool isSolid(const Brush& brush) {
    return brush.getBrushType() == BrushType::solid;
}

}  // namespace

ContentWriter::ContentWriter(Core::SmartPtr<Core::IO::Stream> stream,
                             Core::SmartPtr<DocumentParts> parts, Kind kind)
    : stream_(std::move(stream)), parts_(std::move(parts)), kind_(kind) {
    if (kind == Kind::form)
        decimals_ = TextBuffer::kAllDecimals;
}

ContentWriter::~ContentWriter() = default;

void ContentWriter::begin(const Box& sheet) {
    sheet_ = sheet;
    ink_ = {};
    levels_[0] = {};
    clips_.forget();
}

void ContentWriter::end() {
    if (isDrawing_)
        throw PrintException("a tile is painted with itself");
    closeMatrix();
    closeClip();
    out_.flushTo(*stream_);
}

void ContentWriter::flush() {
    if (!stream_)
        throw PrintException("a fragment or tile is drawn in after it was placed or painted with");
    if (out_.size() >= kFlushSize)
        out_.flushTo(*stream_);
}

/// Back to the first state of the page, which is known, whatever the call did on its way.
void ContentWriter::Attempt::takeBack() {
    writer_.out_.truncate(size_);
    writer_.clips_.forget();
    for (; depth_ > 0; --depth_)
        writer_.out_ << "Q\n";
    writer_.out_ << "fs\n";
    writer_.levels_[0] = {};
    writer_.depth_ = 0;
    writer_.hasClipLevel_ = false;
    writer_.closeMatrix();
    writer_.clip_.clear();
}

void ContentWriter::push() {
    levels_[depth_ + 1] = levels_[depth_];
    ++depth_;
}

void ContentWriter::pop() {
    --depth_;
}

void ContentWriter::open(const Place& place) {
    if (clip_ != place.clip) {
        closeMatrix();
        closeClip();
        openClip(place.clip);
    }
    if (matrix_ != place.matrix) {
        closeMatrix();
        openMatrix(place.matrix);
    }
}

void ContentWriter::openClip(const std::vector<ClipPart>& clip) {
    if (clip.empty())
        return;
    out_ << "q\n";
    push();
    hasClipLevel_ = true;
    clip_ = clip;
    for (const ClipPart& part : clip)
        writeClipPart(part);
}

/// Paths are brought to the space of the page; glyphs need their own for a moment.
void ContentWriter::writeClipPart(const ClipPart& part) {
    if (part.path) {
        const std::size_t begin = out_.size();
        writePath(*part.path, part.matrix);
        out_ << (part.path->getFillRule() == FillRule::evenOdd ? "E\n" : "W\n");
        if (kind_ != Kind::form)
            shortenClip(begin);
        return;
    }
    const auto back = inverse(part.matrix);
    if (back) {
        writeMatrix(part.matrix, out_);
        out_ << "cm\n";
        writeRun(*part.text, true);
    }
    out_ << "W\n";
    if (back) {
        writeMatrix(*back, out_);
        out_ << "cm\n";
    }
}

/// `begin`: where in the text the clip does.
void ContentWriter::shortenClip(std::size_t begin) {
    const std::string shorter = clips_.shorter(out_.view().substr(begin));
    if (shorter.empty())
        return;
    out_.truncate(begin);
    out_ << shorter;
}

void ContentWriter::closeClip() {
    if (!std::exchange(hasClipLevel_, false))
        return;
    out_ << "Q\n";
    pop();
    clip_.clear();
}

/// A pattern that is current was made in the space outside, where it lies elsewhere.
void ContentWriter::openMatrix(const Matrix& matrix) {
    matrix_ = matrix;
    decimals_ = decimalsFor(matrix);
    if (matrix == Matrix())
        return;
    out_ << 'q';
    writeMatrix(matrix, out_);
    out_ << "cm\n";
    push();
    hasMatrixLevel_ = true;
    if (known().paint) {
        known().paint = nullptr;
        known().hasColor = false;
    }
}

void ContentWriter::closeMatrix() {
    matrix_ = {};
    decimals_ = decimalsFor(matrix_);
    if (!std::exchange(hasMatrixLevel_, false) || depth_ == 0)
        return;
    out_ << "Q\n";
    pop();
}

/// Numbers are as fine as the page shows them; a form may be enlarged, so its numbers stay whole.
int ContentWriter::decimalsFor(const Matrix& matrix) const {
    if (kind_ == Kind::form)
        return TextBuffer::kAllDecimals;
    const double scale = largestScale(matrix);
    if (!(scale > 0))
        return TextBuffer::kAllDecimals;
    const int more = static_cast<int>(std::ceil(std::log10(scale) - 1e-6));
    const int decimals = std::max(0, kPageDecimals + more);
    return decimals > TextBuffer::kMostDecimals ? TextBuffer::kAllDecimals : decimals;
}

template <class WriteOutline>
void ContentWriter::paint(const Place& place, const Box& box, FillRule rule, Brush* fill,
                          const Stroke* stroke, WriteOutline writeOutline) {
    Brush* line = stroke ? stroke->getBrush().get() : nullptr;
    const bool fills = paints(fill);
    const bool strokes = paints(line);
    if ((!fills && !strokes) || isFlat(place))
        return;
    flush();
    Attempt attempt(*this);
    open(place);
    if (strokes)
        setLine(*stroke);
    setBrush(strokes ? *line : *fill);
    writeOutline();
    if (fills && strokes) {
        out_ << "q\n";
        push();
        setBrush(*fill);
        pop();
    }
    if (fills)
        out_ << (rule == FillRule::evenOdd ? 'F' : 'f');
    out_ << (fills && strokes ? " Q s\n" : strokes ? "s\n" : "\n");
    if (keepsInk())
        noteInk(place, box, strokes ? stroke : nullptr);
    attempt.succeed();
}

void ContentWriter::drawPath(const Place& place, const Path& path, Brush* fill,
                             const Stroke* stroke) {
    const Box box = keepsInk() ? pathBox(path, stroke) : Box();
    paint(place, box, path.getFillRule(), fill, stroke, [&] { writePath(path, {}); });
}

void ContentWriter::drawRectangle(const Place& place, const Box& rectangle, Brush* fill,
                                  const Stroke* stroke) {
    paint(place, rectangle, FillRule::nonZero, fill, stroke, [&] {
        out_.number(rectangle.left, decimals_);
        out_.number(rectangle.top, decimals_);
        out_.number(rectangle.right - rectangle.left, decimals_);
        out_.number(rectangle.bottom - rectangle.top, decimals_);
        out_ << " re ";
    });
}

void ContentWriter::drawEllipse(const Place& place, Spot centre, double radiusX, double radiusY,
                                Brush* fill, const Stroke* stroke) {
    const Box box{centre.x - radiusX, centre.y - radiusY, centre.x + radiusX, centre.y + radiusY};
    paint(place, box, FillRule::nonZero, fill, stroke, [&] {
        out_.number(centre.x, decimals_);
        out_.number(centre.y, decimals_);
        out_.number(radiusX, decimals_);
        out_.number(radiusY, decimals_);
        out_ << " el ";
    });
}

/// Few places a line: an interpreter gathers an array on its operand stack.
void ContentWriter::drawForms(const Place& place, std::string_view name, const Box& box,
                              std::span<const XPointF> offsets) {
    constexpr std::size_t kPlacesALine = 10;
    Box all;
    for (const XPointF& offset : offsets)
        all.holdBox(
            {box.left + offset.x, box.top + offset.y, box.right + offset.x, box.bottom + offset.y});
    drawForm(place, all, [&](TextBuffer& out) {
        while (!offsets.empty()) {
            const auto line = offsets.first(std::min(kPlacesALine, offsets.size()));
            offsets = offsets.subspan(line.size());
            out << name << '[';
            for (const XPointF& offset : line)
                writePoint(offset.x, offset.y);
            out << "]xf\n";
        }
    });
}

void ContentWriter::drawText(const Place& place, const TextRun& run, Brush* fill,
                             const Stroke* stroke) {
    if (run.glyphs.empty())
        return;
    Brush* line = stroke ? stroke->getBrush().get() : nullptr;
    const bool fills = paints(fill);
    const bool strokes = paints(line);
    if ((!fills && !strokes) || isFlat(place))
        return;
    flush();
    Attempt attempt(*this);
    open(place);
    if (fills) {
        setBrush(*fill);
        writeRun(run, false);
    }
    if (strokes) {
        setLine(*stroke);
        setBrush(*line);
        writeRun(run, true);
        out_ << "s\n";
    }
    if (keepsInk())
        noteInk(place, run.box, strokes ? stroke : nullptr);
    attempt.succeed();
}

void ContentWriter::writePoint(double x, double y) {
    out_.number(x, decimals_);
    out_.number(y, decimals_);
}

/// A path begins with a move whatever its first command is; commands of other kinds draw nothing.
void ContentWriter::writePath(const Path& path, const Matrix& m) {
    const bool isMapped = m != Matrix();
    const auto point = [&](float x, float y) {
        if (isMapped) {
            const Spot p = mapped(m, x, y);
            writePoint(p.x, p.y);
        } else {
            writePoint(x, y);
        }
    };
    for (std::uint64_t i = 0; i < path.getCommandCount(); ++i) {
        const PathCommand& command = path.getCommandAt(i);
        if (i == 0 || command.kind == PathCommandKind::moveTo) {
            point(command.x, command.y);
            out_ << " m\n";
        }
        switch (command.kind) {
            case PathCommandKind::lineTo:
                point(command.x, command.y);
                out_ << " l\n";
                break;
            case PathCommandKind::curveTo:
                point(command.x1, command.y1);
                point(command.x2, command.y2);
                point(command.x, command.y);
                out_ << " c\n";
                break;
            case PathCommandKind::close:
                out_ << "h\n";
                break;
            default:
                break;
        }
    }
}

void ContentWriter::setInk(const Ink& ink) {
    Known& now = known();
    if (now.hasColor && !now.paint && now.color == ink)
        return;
    writeInk(ink, out_);
    out_ << '\n';
    now.color = ink;
    now.hasColor = true;
    now.paint = nullptr;
}

void ContentWriter::setBrush(Brush& brush) {
    if (isSolid(brush)) {
        Ink ink = inkOf(*static_cast<const SolidColorBrush&>(brush).getColor(), brush.getOpacity(),
                        parts_->converter());
        if (!parts_->converter())
            takeNeutralForGray(ink);
        setInk(ink);
        return;
    }
    if (known().paint.get() == &brush)
        return;
    if (brush.getBrushType() == BrushType::pattern) {
        writePattern(static_cast<const PatternBrush&>(brush));
    } else if (brush.getBrushType() == BrushType::colorField) {
        parts_->usesGradients = true;
        writeColorField(static_cast<const ColorFieldBrush&>(brush), parts_->converter(), out_);
    } else {
        parts_->usesGradients = true;
        const auto back = inverse(matrix_);
        writeGradient(static_cast<const GradientBrush&>(brush), parts_->converter(),
                      back ? sheet_.mapped(*back) : sheet_, out_);
    }
    known().paint = Core::SmartPtr<Brush>(&brush);
    known().hasColor = false;
}

void ContentWriter::writePattern(const PatternBrush& brush) {
    const auto tile = brush.getPatternRenderContext().dynamicCast<PrintForm>();
    if (!tile)
        throw PrintException("a pattern's tile was not made by createPatternOutputContext");
    const FormStore::Id id = tile->seal();
    parts_->noteForm(id, kind_ == Kind::form);
    Matrix m = brush.getMatrix();
    m.translate(brush.getOrigin().x, brush.getOrigin().y);
    out_ << FormStore::nameOf(id);
    writeMatrix(m, out_);
    out_ << "tp\n";
}

void ContentWriter::setLine(const Stroke& stroke) {
    Known& now = known();
    const double width = stroke.getThickness();
    if (!(width >= 0))
        throw PrintException("a line is " + std::to_string(width) + " wide; take 0 or more");
    if (now.width != width) {
        out_.number(width, decimals_ < 0 ? decimals_ : decimals_ + 1);
        out_ << " w\n";
        now.width = width;
    }
    // A triangle has no PostScript form.
    const LineCap cap =
        stroke.getDashCap() == LineCap::triangle ? LineCap::butt : stroke.getDashCap();
    if (now.cap != cap) {
        out_.number(static_cast<int>(cap));
        out_ << " J\n";
        now.cap = cap;
    }
    if (now.join != stroke.getLineJoin()) {
        out_.number(static_cast<int>(stroke.getLineJoin()));
        out_ << " j\n";
        now.join = stroke.getLineJoin();
    }
    const double limit = std::max(1.0F, stroke.getMiterLimit());
    if (now.join == LineJoin::miter && now.miterLimit != limit) {
        out_.number(limit);
        out_ << " M\n";
        now.miterLimit = limit;
    }
    setDashes(stroke);
}

/// Dashes of no length at all are no dashes.
void ContentWriter::setDashes(const Stroke& stroke) {
    Known& now = known();
    Core::Vector<float> dashes = stroke.getDashArray();
    double total = 0;
    for (const float dash : dashes) {
        if (!(dash >= 0))
            throw PrintException("a dash is " + std::to_string(dash) + " long; take 0 or more");
        total += dash;
    }
    if (total == 0)
        dashes.clear();
    const double period = total * (dashes.size() % 2 == 0 ? 1 : 2);
    double offset = dashes.empty() ? 0 : stroke.getDashOffset();
    if (offset < 0)
        offset += period * std::ceil(-offset / period);
    if (now.dashes == dashes && now.dashOffset == offset)
        return;
    const int decimals = decimals_ < 0 ? decimals_ : decimals_ + 1;
    out_ << '[';
    for (const float dash : dashes)
        out_.number(dash, decimals);
    out_ << ']';
    out_.number(offset, decimals);
    out_ << " d\n";
    now.dashes = std::move(dashes);
    now.dashOffset = offset;
}

void ContentWriter::noteInk(const Place& place, const Box& box, const Stroke* stroke) {
    if (!keepsInk())
        return;
    Box seen = stroke ? strokedBox(box, *stroke) : box;
    seen = seen.mapped(place.matrix);
    for (const ClipPart& part : place.clip)
        seen = seen.common(
            (part.path ? pathBox(*part.path, nullptr) : part.text->box).mapped(part.matrix));
    if (kind_ != Kind::form)
        seen = seen.common(sheet_);
    if (!seen.isEmpty())
        ink_.holdBox(seen);
}

}  // namespace Drawing::Print
