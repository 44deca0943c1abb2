#pragma once

#include "psrender/plan/Planner.h"

#include <initializer_list>
#include <string>

/// Pages of 100 by 100 points as Ghostscript shows them.
namespace psrender::tests {

/// The document that `page` becomes, by way of the planner.
std::string printed(const scene::Page& page, const plan::PlanOptions& options = {});

/// The script of a page with `body` on it.
std::string script(const std::string& body, const plan::PlanOptions& options = {});

struct Spot {
    double x, y;
    bool inked;
};

/// Renders `body`, drawn in red, and looks at single spots of it.
void expectSpots(const std::string& body, std::initializer_list<Spot> spots);

}  // namespace psrender::tests
