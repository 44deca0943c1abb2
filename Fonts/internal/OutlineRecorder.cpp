#include "Fonts/internal/OutlineRecorder.h"

namespace Fonts {

void OutlineRecorder::replay(GlyphSink& sink) const {
    for (const auto& [kind, points] : steps_) {
        std::array<float, 6> p = points;
        for (float& value : p)
            value *= unit_;
        switch (kind) {
            case Kind::move:
                sink.moveTo(p[0], p[1]);
                break;
            case Kind::line:
                sink.lineTo(p[0], p[1]);
                break;
            case Kind::curve:
                sink.curveTo(p[0], p[1], p[2], p[3], p[4], p[5]);
                break;
            case Kind::close:
                sink.close();
                break;
        }
    }
}

}  // namespace Fonts
