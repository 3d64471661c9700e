// The command line as a whole: parsing, running, and what the exit status says.
#pragma once

namespace korvane {

/// What a run of korvane-cli ends with.
enum ExitStatus { ExitDone = 0, ExitBadFile = 1, ExitWrongUsage = 2 };

/// Runs the sub-command that the arguments name. Results go to standard output, messages to
/// standard error.
int RunCli(int argc, char** argv);

}  // namespace korvane
