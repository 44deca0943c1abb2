#pragma once

#include <array>
#include <csignal>

namespace psrender {

/// Signals that say what a failed write says, too. They are ignored, so that the write reports
/// the closed pipe or the size limit and the job ends with a sentence; a program that is started
/// from here gets them back.
inline constexpr std::array kWriteSignals{SIGPIPE, SIGXFSZ};

/// To be called before anything is opened. Takes the places of standard streams that are closed,
/// which the next file would get otherwise, with the messages or the document in it; what reads or
/// writes such a stream fails. Ignores `kWriteSignals`.
void prepareProcess();

}  // namespace psrender
