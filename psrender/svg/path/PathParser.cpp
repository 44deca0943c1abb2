#include "psrender/svg/path/PathParser.h"

#include "psrender/svg/path/PathPen.h"
#include "psrender/svg/values/Characters.h"
#include "psrender/svg/values/NumberScanner.h"

#include <array>

namespace psrender::svg {

using scene::Point;

namespace {

class PathParser {
public:
    explicit PathParser(std::string_view data) : scanner_(data) {}

    ParsedPath parse() {
        scanner_.skipSpace();
        bool isWhole = scanner_.atEnd() || toLower(scanner_.peek()) == 'm';
        while (isWhole && !scanner_.atEnd()) {
            isWhole = readCommand();
            scanner_.skipSpace();
        }
        return {pen_.takeOutline(), isWhole, pen_.takeJoints()};
    }

private:
    bool readCommand();
    bool readSegment(char command);
    bool readOnePoint(char command);
    bool readTwoPoints(char command);
    bool readCubic();
    bool readAlongAxis(char command);
    bool readArc();
    bool anotherFollows();
    template <std::size_t count>
    bool read(std::array<double, count>& numbers);
    template <std::size_t count>
    bool read(std::array<Point, count>& points);

    NumberScanner scanner_;
    PathPen pen_;
    Point origin_;  ///< what the coordinates of the segment at hand are relative to
};

bool PathParser::readCommand() {
    const char letter = scanner_.peek();
    scanner_.advance();
    char command = toLower(letter);
    const bool isRelative = command == letter;
    if (command == 'z') {
        pen_.close();
        return true;
    }
    do {
        origin_ = isRelative ? pen_.current() : Point{};
        if (!readSegment(command))
            return false;
        if (command == 'm')
            command = 'l';
    } while (anotherFollows());
    return true;
}

bool PathParser::readSegment(char command) {
    switch (command) {
        case 'm':
        case 'l':
        case 't':
            return readOnePoint(command);
        case 's':
        case 'q':
            return readTwoPoints(command);
        case 'c':
            return readCubic();
        case 'h':
        case 'v':
            return readAlongAxis(command);
        case 'a':
            return readArc();
        default:
            return false;
    }
}

bool PathParser::readOnePoint(char command) {
    std::array<Point, 1> p;
    if (!read(p))
        return false;
    if (command == 'm')
        pen_.move(p[0]);
    else if (command == 'l')
        pen_.line(p[0]);
    else
        pen_.smoothQuadratic(p[0]);
    return true;
}

bool PathParser::readTwoPoints(char command) {
    std::array<Point, 2> p;
    if (!read(p))
        return false;
    if (command == 's')
        pen_.smoothCubic(p[0], p[1]);
    else
        pen_.quadratic(p[0], p[1]);
    return true;
}

bool PathParser::readCubic() {
    std::array<Point, 3> p;
    if (!read(p))
        return false;
    pen_.cubic(p[0], p[1], p[2]);
    return true;
}

bool PathParser::readAlongAxis(char command) {
    std::array<double, 1> n{};
    if (!read(n))
        return false;
    if (command == 'h')
        pen_.line({origin_.x + n[0], pen_.current().y});
    else
        pen_.line({pen_.current().x, origin_.y + n[0]});
    return true;
}

bool PathParser::readArc() {
    std::array<double, 3> ellipse{};
    if (!read(ellipse))
        return false;
    scanner_.skipCommaSpace();
    const auto isLarge = scanner_.flag();
    scanner_.skipCommaSpace();
    const auto isClockwise = scanner_.flag();
    std::array<Point, 1> end;
    if (!isLarge || !isClockwise || !read(end))
        return false;
    pen_.arc({ellipse[0], ellipse[1], ellipse[2], *isLarge, *isClockwise, end[0]});
    return true;
}

/// Coordinates of further segments of the same kind need no letter of their own.
bool PathParser::anotherFollows() {
    scanner_.skipSpace();
    return scanner_.peek() == ',' || scanner_.atNumber();
}

template <std::size_t count>
bool PathParser::read(std::array<double, count>& numbers) {
    for (double& number : numbers) {
        scanner_.skipCommaSpace();
        const auto next = scanner_.number();
        if (!next)
            return false;
        number = *next;
    }
    return true;
}

template <std::size_t count>
bool PathParser::read(std::array<Point, count>& points) {
    std::array<double, 2 * count> numbers{};
    if (!read(numbers))
        return false;
    for (std::size_t i = 0; i < count; ++i)
        points[i] = {origin_.x + numbers[2 * i], origin_.y + numbers[2 * i + 1]};
    return true;
}

std::optional<Point> readPoint(NumberScanner& scanner) {
    const auto x = scanner.number();
    scanner.skipCommaSpace();
    const auto y = scanner.number();
    if (!x || !y)
        return std::nullopt;
    return Point{*x, *y};
}

}  // namespace

ParsedPath parsePath(std::string_view data) {
    return PathParser(data).parse();
}

ParsedPath parsePoints(std::string_view points, bool isClosed) {
    NumberScanner scanner(points);
    PathPen pen;
    scanner.skipSpace();
    std::size_t count = 0;
    bool isWhole = true;
    while (isWhole && !scanner.atEnd()) {
        const std::optional<Point> point = readPoint(scanner);
        isWhole = point.has_value();
        if (isWhole && count++ == 0)
            pen.move(*point);
        else if (isWhole)
            pen.line(*point);
        scanner.skipCommaSpace();
    }
    if (isClosed && count > 0)
        pen.close();
    return {pen.takeOutline(), isWhole};
}

}  // namespace psrender::svg
