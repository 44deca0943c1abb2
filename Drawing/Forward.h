#pragma once

#include "Core/Forward.h"

/// Names of the drawing model, for headers that only mention them.
namespace Drawing {

class Brush;
class Color;
class ColorSpace;
class ColorSubstitute;
class Font;
class GradientBrush;
class Image;
class IOutputContext;
class Matrix;
class Object3D;
class Path;
class PatternBrush;
class ResourceManager;
class SolidColorBrush;
class SpotColor;
class Stroke;
struct PathCommand;
struct SizeF;
struct StopPoint;
struct XPointF;

}  // namespace Drawing
