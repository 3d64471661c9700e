// korvane-cli: batch work on object files, without a display.
#include "cli/mCli.h"

int main(int argc, char** argv) {
    return korvane::RunCli(argc, argv);
}
