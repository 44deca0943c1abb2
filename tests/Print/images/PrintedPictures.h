#pragma once

#include "Core/MemoryStream.h"
#include "Drawing/RasterImage.h"
#include "Print/images/internal/PictureStore.h"
#include "tests/support/Interpreter.h"

#include <string>
#include <vector>

/// A page of pictures, put together as a document would.
class PrintedPictures {
public:
    using Id = Drawing::Print::PictureStore::Id;
    using Bytes = std::vector<std::uint8_t>;

    explicit PrintedPictures(Core::SmartPtr<Drawing::Print::ColorConverter> converter = nullptr);

    Drawing::Print::PictureStore& store() { return store_; }
    /// Shows the picture on the page with the next free points below at its left; a point a pixel.
    void show(Id id, int width, int height);
    /// The page, at least 40 points wide, its background yellow; each picture below the one before.
    [[nodiscard]] const std::string& page();
    /// The page as Ghostscript shows it, a pixel a point.
    [[nodiscard]] Picture rendered();

    static Core::SmartPtr<Drawing::RasterImage> image(int width, int height,
                                                      Drawing::ColorSpaceType space, Bytes pixels,
                                                      Bytes alpha = {});

private:
    struct Place {
        Id id;
        int y, width, height;
    };

    Drawing::Print::Spool spool_;
    Drawing::Print::PictureStore store_;
    std::vector<Place> places_;
    int width_ = 40;
    int height_ = 0;
    std::string page_;
};
