#include "cli/mCli.h"

#include <iostream>
#include <string>

#include "base/Version.h"
#include "cli/SubCommands.h"
#include "cli/mCliFiles.h"

namespace korvane {
namespace {

constexpr void (*kSubCommands[])(CLI::App&) = {AddInfo, AddConvert, AddExport, AddRender,
                                               AddOptimize};

constexpr const char* kExitStatus =
    "Exit status: 0 success, 1 a file was bad or could not be written, 2 wrong usage.";

/// Help goes to standard output, a complaint about the usage to standard error.
int Explain(const CLI::App& app, const CLI::ParseError& error) {
    return app.exit(error) == 0 ? ExitDone : ExitWrongUsage;
}

/// Results that nobody could receive are no success: a full disk behind a redirection.
int Finish(int status) {
    if (std::cout.flush()) return status;
    std::cerr << "korvane-cli: Error: Unable to write to standard output!\n";
    return ExitBadFile;
}

}  // namespace

CLI::App& AddSubCommand(CLI::App& app, const std::string& name, const std::string& summary,
                        const std::string& details) {
    CLI::App& command = *app.add_subcommand(name, summary);
    command.footer(details + "\n" + kExitStatus);
    return command;
}

int RunCli(int argc, char** argv) {
    CLI::App app("Works on Korvane objects without a window.", "korvane-cli");
    app.require_subcommand(0, 1);  // none is told below: a mistyped one has its own message
    app.set_version_flag("--version", std::string("korvane-cli ") + kVersionText);
    app.footer(std::string("\"korvane-cli SUBCOMMAND --help\" tells more of each.\n") +
               kExitStatus);
    for (const auto add : kSubCommands) add(app);
    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) throw CLI::RequiredError::Subcommand(1);
    } catch (const CLI::RuntimeError& error) {
        return Finish(error.get_exit_code());
    } catch (const CLI::ParseError& error) {
        return Finish(Explain(app, error));
    } catch (const FileError& error) {
        std::cerr << error.what() << "\n";
        return Finish(ExitBadFile);
    } catch (const std::bad_alloc&) {
        std::cerr << "korvane-cli: Error: Not enough memory!\n";
        return Finish(ExitBadFile);
    }
    return Finish(ExitDone);
}

}  // namespace korvane
