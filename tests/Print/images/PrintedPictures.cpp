#include "tests/Print/images/PrintedPictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <locale>
#include <set>
#include <sstream>

using Core::IO::MemoryStream;

PrintedPictures::PrintedPictures(Core::SmartPtr<Drawing::Print::ColorConverter> converter)
    : store_(spool_, std::move(converter)) {}

void PrintedPictures::show(Id id, int width, int height) {
    store_.noteUse(id, 0);
    places_.push_back({id, height_, width, height});
    width_ = std::max(width_, width);
    height_ += height;
}

const std::string& PrintedPictures::page() {
    if (!page_.empty())
        return page_;
    const auto stream = Core::makeObject<MemoryStream>();
    const auto write = [&](const auto&... parts) {
        std::ostringstream text;
        text.imbue(std::locale::classic());
        (text << ... << parts);
        stream->write(text.str());
    };
    write("%!PS\n<</PageSize[", width_, " ", height_, "]>>setpagedevice\n1 1 0 setrgbcolor 0 0 ",
          width_, " ", height_, " rectfill 0 0 1 setrgbcolor\n[1 0 0 -1 0 ", height_, "]concat\n");
    std::set<Id> defined;
    for (const Place& place : places_)
        if (store_.isShared(place.id) && defined.insert(place.id).second)
            store_.writeDefinition(place.id, *stream);
    for (const Place& place : places_) {
        write("gsave 0 ", place.y, " translate ", place.width, " ", place.height, " scale\n");
        store_.writeUse(place.id, *stream);
        write("grestore\n");
    }
    write("count 0 ne{(operands are left)=}if showpage\n");
    return page_ = stream->view();
}

Picture PrintedPictures::rendered() {
    const Interpretation result = interpret(page(), 72, "-dUseFastColor=true");
    EXPECT_EQ("", result.messages);
    return result.pages.empty() ? Picture() : result.pages.front();
}

Core::SmartPtr<Drawing::RasterImage> PrintedPictures::image(int width, int height,
                                                            Drawing::ColorSpaceType space,
                                                            Bytes pixels, Bytes alpha) {
    return Core::makeObject<Drawing::RasterImage>(Drawing::PixelSize{width, height}, space,
                                                  Core::ByteArray(std::move(pixels)),
                                                  Core::ByteArray(std::move(alpha)));
}
