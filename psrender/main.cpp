#include "Core/Exception.h"
#include "Core/Log.h"
#include "psrender/job/CommandLine.h"
#include "psrender/job/JoinJob.h"
#include "psrender/job/Message.h"
#include "psrender/job/ProcessState.h"

#include <exception>
#include <new>
#include <string>

namespace {

int complain(const std::string& sentence) {
    psrender::tell(sentence);
    return psrender::failure;
}

}  // namespace

int main(int argc, char** argv) {
    psrender::prepareProcess();
    try {
        const auto asked = psrender::parseCommandLine(argc, argv);
        if (const auto* code = std::get_if<psrender::ExitCode>(&asked))
            return *code;
        const auto& [request, batch] = std::get<psrender::Asked>(asked);
        bool isWarned = false;
        Core::Log::setSink([&isWarned, quiet = request.quiet](const Core::String& text) {
            isWarned = true;
            if (!quiet)
                psrender::tell("warning: " + text.toUtf8());
        });
        const psrender::ExitCode code = request.joins ? psrender::runJoin(request)
                                        : batch       ? psrender::runBatch(request, *batch)
                                                      : psrender::runJob(request);
        Core::Log::setSink({});
        return code == psrender::success && request.strict && isWarned ? psrender::simplified
                                                                       : code;
    } catch (const Core::Exception& error) {
        return complain(error.getMessage());
    } catch (const std::bad_alloc&) {
        return complain("out of memory; convert fewer or smaller drawings at a time");
    } catch (const std::exception& error) {
        return complain(error.what());
    }
}
