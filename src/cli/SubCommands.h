// The sub-commands of korvane-cli, one file each. A new one is a file, a line here, and a line in
// the list of mCli.cpp.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace korvane {

/// Each adds a sub-command with its options. It runs while the arguments are parsed, and throws
/// FileError when a file is bad or can't be written.
void AddInfo(CLI::App& app);
void AddConvert(CLI::App& app);
void AddExport(CLI::App& app);
void AddRender(CLI::App& app);
void AddOptimize(CLI::App& app);

/// Adds a sub-command to begin with: what it does in one line, and in more words under its help.
CLI::App& AddSubCommand(CLI::App& app, const std::string& name, const std::string& summary,
                        const std::string& details);

}  // namespace korvane
