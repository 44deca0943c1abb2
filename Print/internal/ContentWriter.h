#pragma once

#include "Core/Object.h"
#include "Core/SmartPtr.h"
#include "Core/Stream.h"
#include "Drawing/Brush.h"
#include "Drawing/Matrix.h"
#include "Drawing/Path.h"
#include "Drawing/PatternBrush.h"
#include "Drawing/Stroke.h"
#include "Print/internal/Box.h"
#include "Print/internal/DocumentParts.h"
#include "Print/internal/GradientPaint.h"
#include "Print/internal/Ink.h"
#include "Print/internal/RepeatedClips.h"
#include "Print/internal/TextBuffer.h"
#include "Print/internal/TextRun.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Drawing::Print {

/// One part of a clip: the inside of a path, or of the glyphs of a run, in the space of `matrix`.
struct ClipPart {
    Core::SmartPtr<Path> path;
    std::shared_ptr<const TextRun> text;  ///< in place of a path
    Matrix matrix;

    friend bool operator==(const ClipPart&, const ClipPart&) = default;
};

/// The space and clip in which something is drawn.
struct Place {
    const Matrix& matrix;
    const std::vector<ClipPart>& clip;
};

/// Writes the drawing of one page, form or tile, and only what changes: drawings of equal clip and
/// matrix stand in one pair of "q" and "Q", and colour, line and font are set when they differ from
/// what the interpreter has. A call that raises leaves nothing behind.
///
/// Levels of the graphics state: the page, in it the clip, in it the matrix.
class ContentWriter : public Core::Object {
public:
    /// What is written: a page, whose points are those of the paper; a page whose ink is measured;
    /// or a form, whose scale only its places know.
    enum class Kind : std::uint8_t { page, measuredPage, form };

    ContentWriter(Core::SmartPtr<Core::IO::Stream> stream, Core::SmartPtr<DocumentParts> parts,
                  Kind kind);
    ~ContentWriter() override;

    /// A new page or form, whose space `sheet` covers as far as anything can be seen.
    void begin(const Box& sheet);
    /// Closes what is open and hands everything on to the stream. Raises `PrintException` within
    /// a drawing call, which only a tile can cause that is painted with itself.
    void end();
    /// The same as it stands, for text between pages.
    TextBuffer& text() { return out_; }
    /// Before a drawing call: hands on what has gathered. Raises `PrintException` when closed.
    void flush();
    /// Nothing can be drawn any more.
    void close() { stream_ = nullptr; }

    void drawPath(const Place& place, const Path& path, Brush* fill, const Stroke* stroke);
    void drawRectangle(const Place& place, const Box& rectangle, Brush* fill, const Stroke* stroke);
    void drawEllipse(const Place& place, Spot centre, double radiusX, double radiusY, Brush* fill,
                     const Stroke* stroke);
    void drawText(const Place& place, const TextRun& run, Brush* fill, const Stroke* stroke);
    /// What `use` writes, in the unit square of `box`. `fill` null for a picture that has its own
    /// colours.
    template <class Use>
    void drawBox(const Place& place, const Box& box, Brush* fill, Use use);
    /// What `use` writes, in the space of `place`, covering `box` of it.
    template <class Use>
    void drawForm(const Place& place, const Box& box, Use use);
    /// A form that covers `box` around its origin, at each of `offsets`, of which there are some.
    void drawForms(const Place& place, std::string_view name, const Box& box,
                   std::span<const XPointF> offsets);

    /// Whether nothing can be seen there: no interpreter divides by such a matrix.
    [[nodiscard]] static bool isFlat(const Place& place) { return !inverse(place.matrix); }
    /// Whether the brush leaves any paint.
    [[nodiscard]] static bool paints(const Brush* brush) {
        return brush && brush->getBrushType() != BrushType::none && brush->getOpacity() > 0;
    }

    /// The clip that later drawing is to have.
    void setClip(std::vector<ClipPart> clip) { wantedClip_ = std::move(clip); }
    [[nodiscard]] const std::vector<ClipPart>& clip() const { return wantedClip_; }
    /// Whether the extent of what is painted is measured.
    [[nodiscard]] bool keepsInk() const { return kind_ != Kind::page; }
    [[nodiscard]] bool isForm() const { return kind_ == Kind::form; }
    /// What was painted since `begin`, in the space of the page or form.
    [[nodiscard]] const Box& ink() const { return ink_; }

private:
    /// What the interpreter's graphics state holds, as far as it is known.
    struct Known {
        Ink color;  ///< if `hasColor`
        bool hasColor = true;
        Core::SmartPtr<Brush> paint;  ///< the gradient or pattern that is current, if any
        double width = 1;
        LineCap cap = LineCap::butt;
        LineJoin join = LineJoin::miter;
        double miterLimit = 10;
        Core::Vector<float> dashes;
        double dashOffset = 0;
        const PrintFont* font = nullptr;
        std::uint16_t fontPart = 0;
        double fontSize = 0;
    };
    class Attempt;

    void open(const Place& place);
    void openClip(const std::vector<ClipPart>& clip);
    void openMatrix(const Matrix& matrix);
    void closeMatrix();
    void closeClip();
    void writeClipPart(const ClipPart& part);
    void shortenClip(std::size_t begin);
    [[nodiscard]] Known& known() { return levels_[depth_]; }
    void push();
    void pop();

    void writePath(const Path& path, const Matrix& m);
    void writePoint(double x, double y);
    template <class WriteOutline>
    void paint(const Place& place, const Box& box, FillRule rule, Brush* fill, const Stroke* stroke,
               WriteOutline writeOutline);
    void setBrush(Brush& brush);
    void setInk(const Ink& ink);
    void setLine(const Stroke& stroke);
    void setDashes(const Stroke& stroke);
    void writePattern(const PatternBrush& brush);
    [[nodiscard]] int decimalsFor(const Matrix& matrix) const;
    void selectFont(const PrintFont& font, std::uint16_t part, double size);
    void writeRun(const TextRun& run, bool asOutline);
    void writeStrings(const TextRun& run, std::size_t from, std::size_t to, bool asOutline);

    void noteInk(const Place& place, const Box& box, const Stroke* stroke);

    Core::SmartPtr<Core::IO::Stream> stream_;
    Core::SmartPtr<DocumentParts> parts_;
    Kind kind_;
    TextBuffer out_;
    Box sheet_;
    Box ink_;
    std::array<Known, 4> levels_;
    std::size_t depth_ = 0;
    bool isDrawing_ = false;
    bool hasClipLevel_ = false;
    bool hasMatrixLevel_ = false;
    std::vector<ClipPart> wantedClip_;
    std::vector<ClipPart> clip_;  ///< the one that is open
    RepeatedClips clips_;
    Matrix matrix_;
    int decimals_ = 3;
};

/// Takes back what a drawing call wrote unless it came to its end.
class ContentWriter::Attempt {
public:
    explicit Attempt(ContentWriter& writer)
        : writer_(writer), size_(writer.out_.size()), depth_(writer.depth_) {
        writer.out_.reserve(kMostTakenBack);
        writer.isDrawing_ = true;
    }
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;
    ~Attempt() {
        writer_.isDrawing_ = false;
        if (!isDone_)
            takeBack();
    }
    void succeed() { isDone_ = true; }

private:
    static constexpr std::size_t kMostTakenBack = 16;

    void takeBack();

    ContentWriter& writer_;
    std::size_t size_;
    std::size_t depth_;
    bool isDone_ = false;
};

template <class Use>
void ContentWriter::drawBox(const Place& place, const Box& box, Brush* fill, Use use) {
    if (box.isEmpty() || box.left == box.right || box.top == box.bottom || isFlat(place))
        return;
    flush();
    Attempt attempt(*this);
    open(place);
    if (fill)
        setBrush(*fill);
    out_ << "q";
    writeMatrix(
        {static_cast<float>(box.right - box.left), 0, 0, static_cast<float>(box.bottom - box.top),
         static_cast<float>(box.left), static_cast<float>(box.top)},
        out_);
    out_ << "cm\n";
    use(out_);
    out_ << "Q\n";
    noteInk(place, box, nullptr);
    attempt.succeed();
}

template <class Use>
void ContentWriter::drawForm(const Place& place, const Box& box, Use use) {
    if (isFlat(place))
        return;
    flush();
    Attempt attempt(*this);
    open(place);
    use(out_);
    noteInk(place, box, nullptr);
    attempt.succeed();
}

}  // namespace Drawing::Print
