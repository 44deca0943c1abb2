#pragma once

#include "Drawing/Brush.h"
#include "Drawing/Path.h"
#include "Drawing/Stroke.h"
#include "Print/PrintDocument.h"
#include "tests/support/Interpreter.h"

#include <functional>
#include <initializer_list>
#include <string>

using Draw = std::function<void(Drawing::Print::PrintDocument&)>;

/// A finished document; `draw` makes the pages, too.
std::string printed(const Draw& draw, const Drawing::Print::PrintSettings& settings = {});
/// A document of one page of 100 by 100 points on which `draw` draws, without fill and stroke at
/// first.
std::string onePage(const Draw& draw, const Drawing::Print::PrintSettings& settings = {});
/// What such a page holds between its set-up and its end.
std::string contentOf(const Draw& draw, const Drawing::Print::PrintSettings& settings = {});
/// How Ghostscript shows such a page, a pixel a point.
Picture shown(const Draw& draw, const Drawing::Print::PrintSettings& settings = {});
/// Shows the only page of `document`, which must give no message.
Picture shownPage(const std::string& document);
/// The text of a document after it went through ps2pdf and pdftotext.
std::string wordsOf(const std::string& document);

Core::SmartPtr<Drawing::Brush> paintOf(int red, int green, int blue, float opacity = 1);
Core::SmartPtr<Drawing::Stroke> lineOf(float width);
/// Straight lines between the points, closed.
Core::SmartPtr<Drawing::Path> polygon(std::initializer_list<Drawing::XPointF> corners);

constexpr Picture::Pixel kWhite{255, 255, 255};
constexpr Picture::Pixel kBlack{0, 0, 0};
