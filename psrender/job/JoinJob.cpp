#include "psrender/job/JoinJob.h"

#include "psrender/base/Place.h"
#include "psrender/job/Message.h"
#include "psrender/job/OutputFile.h"
#include "psrender/job/join/Join.h"

#include <string>
#include <vector>

namespace psrender {

ExitCode runJoin(const JobRequest& request) {
    OutputFile output(request.output);
    const std::vector<std::string> others = join::joinDocuments(request.inputs, *output.stream());
    output.commit();
    if (!request.quiet)
        for (const std::string& part : others)
            tell("warning: " + messageAt({part},
                                         "its title, author or printing options differ; "
                                         "those of the first part hold"));
    return request.strict && !others.empty() ? simplified : success;
}

}  // namespace psrender
