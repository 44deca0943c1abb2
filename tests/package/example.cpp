#include "Core/FileStream.h"
#include "Drawing/Brush.h"
#include "Drawing/Stroke.h"
#include "PS/PSDocument.h"

int main() {
    using namespace Drawing;
    const auto file = Core::makeObject<Core::IO::FileStream>("hello.ps", true, true, true);
    const auto document = Core::makeObject<PS::PSDocument>(file, false);
    document->startPage({240, 120});
    document->setTransform({});
    document->setFill(Core::makeObject<SolidColorBrush>(Core::makeObject<RGBColor>(250, 190, 60)));
    document->drawRectangle(20, 20, 120, 80, 12, 12);
    document->setFill(nullptr);
    document->drawEllipse(160, 60, 60, 40);
    document->endPage();
    document->endDocument();
    file->close();
}
