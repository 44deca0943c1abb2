#pragma once

#include <string>
#include <vector>

namespace psrender::options {

/// Where a user's defaults stand; empty where there are none.
std::string settingsFile();

/// The arguments of the program, behind those that the environment holds in PSRENDER_OPTIONS.
/// "-h" asks for help where no length follows, as it is the height, too.
std::vector<std::string> allArguments(int argc, char** argv);

/// Raises `CLI::ValidationError` for an argument that says how drawings become pages: parts are
/// joined as they are. Defaults of the user are no matter.
void requireOnlyForJoining(int argc, char** argv);

}  // namespace psrender::options
